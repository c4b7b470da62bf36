// An application in a list of the form, with a button that takes it out. Main thread.
#pragma once

#include "hosts/x11/qt/X11FormRow.h"

class QToolButton;

namespace haloric {

class X11ListRow final : public X11FormRow {
public:
    explicit X11ListRow(const FormRow& row);
    void show(const FormRow& row) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void showImages();

    QLabel* m_icon;
    QLabel& m_title;
    QToolButton* m_remove;
    FormListRow m_model;
};

} // namespace haloric
