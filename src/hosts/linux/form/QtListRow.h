// An application in a list of the form, with a button that takes it out. Main thread.
#pragma once

#include "hosts/linux/form/QtFormRow.h"

class QToolButton;

namespace haloric {

class QtListRow final : public QtFormRow {
public:
    explicit QtListRow(const FormRow& row);
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
