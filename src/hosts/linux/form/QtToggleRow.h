// A toggle of the form: a switch. Main thread.
#pragma once

#include "hosts/linux/form/QtFormRow.h"
#include "hosts/linux/form/QtSwitch.h"

namespace haloric {

class QtToggleRow final : public QtFormRow {
public:
    explicit QtToggleRow(const FormRow& row);
    void show(const FormRow& row) override;

private:
    QLabel& m_label;
    QtSwitch* m_switch;
    std::function<void(bool)> m_set;
};

} // namespace haloric
