// A choice of the form: a combo box. Main thread.
#pragma once

#include "hosts/x11/qt/X11FormRow.h"

class QComboBox;

namespace haloric {

class X11PickerRow final : public X11FormRow {
public:
    explicit X11PickerRow(const FormRow& row);
    void show(const FormRow& row) override;

private:
    QLabel& m_label;
    QComboBox* m_box;
    std::function<void(std::size_t)> m_choose;
};

} // namespace haloric
