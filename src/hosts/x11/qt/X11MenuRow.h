// A menu of the form: a button that opens it, disabled while it has no items. Main thread.
#pragma once

#include "hosts/x11/qt/X11FormRow.h"

class QMenu;
class QPushButton;

namespace haloric {

class X11MenuRow final : public X11FormRow {
public:
    explicit X11MenuRow(const FormRow& row);
    void show(const FormRow& row) override;

private:
    QPushButton* m_button;
    QMenu* m_menu;
    FormMenu m_model;
};

} // namespace haloric
