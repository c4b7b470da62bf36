// A button of the form. Main thread.
#pragma once

#include "hosts/x11/qt/X11FormRow.h"

class QPushButton;

namespace haloric {

class X11ButtonRow final : public X11FormRow {
public:
    explicit X11ButtonRow(const FormRow& row);
    void show(const FormRow& row) override;

private:
    QPushButton* m_button;
    Task m_perform;
};

} // namespace haloric
