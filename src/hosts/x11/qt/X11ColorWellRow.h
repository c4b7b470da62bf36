// A colour of the form. Main thread.
#pragma once

#include "hosts/x11/qt/X11ColorWell.h"
#include "hosts/x11/qt/X11FormRow.h"

namespace haloric {

class X11ColorWellRow final : public X11FormRow {
public:
    explicit X11ColorWellRow(const FormRow& row);
    void show(const FormRow& row) override;

private:
    QLabel& m_label;
    X11ColorWell* m_well;
    std::function<void(const Color&)> m_set;
};

} // namespace haloric
