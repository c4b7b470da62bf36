// A button of the form. Main thread.
#pragma once

#include "hosts/linux/form/QtFormRow.h"

class QPushButton;

namespace haloric {

class QtButtonRow final : public QtFormRow {
public:
    explicit QtButtonRow(const FormRow& row);
    void show(const FormRow& row) override;

private:
    QPushButton* m_button;
    Task m_perform;
};

} // namespace haloric
