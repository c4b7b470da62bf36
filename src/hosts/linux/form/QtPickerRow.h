// A choice of the form: a combo box. Main thread.
#pragma once

#include "hosts/linux/form/QtFormRow.h"

class QComboBox;

namespace haloric {

class QtPickerRow final : public QtFormRow {
public:
    explicit QtPickerRow(const FormRow& row);
    void show(const FormRow& row) override;

private:
    QLabel& m_label;
    QComboBox* m_box;
    std::function<void(std::size_t)> m_choose;
};

} // namespace haloric
