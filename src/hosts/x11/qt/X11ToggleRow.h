// A toggle of the form: a switch. Main thread.
#pragma once

#include "hosts/x11/qt/X11FormRow.h"
#include "hosts/x11/qt/X11Switch.h"

namespace haloric {

class X11ToggleRow final : public X11FormRow {
public:
    explicit X11ToggleRow(const FormRow& row);
    void show(const FormRow& row) override;

private:
    QLabel& m_label;
    X11Switch* m_switch;
    std::function<void(bool)> m_set;
};

} // namespace haloric
