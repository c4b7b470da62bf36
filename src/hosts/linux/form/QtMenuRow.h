// A menu of the form: a button that opens it, disabled while it has no items. Main thread.
#pragma once

#include "hosts/linux/form/QtFormRow.h"

class QMenu;
class QPushButton;

namespace haloric {

class QtMenuRow final : public QtFormRow {
public:
    explicit QtMenuRow(const FormRow& row);
    void show(const FormRow& row) override;

private:
    QPushButton* m_button;
    QMenu* m_menu;
    FormMenu m_model;
};

} // namespace haloric
