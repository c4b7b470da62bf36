// A colour of the form. Main thread.
#pragma once

#include "hosts/linux/form/QtColorWell.h"
#include "hosts/linux/form/QtFormRow.h"

namespace haloric {

class QtColorWellRow final : public QtFormRow {
public:
    explicit QtColorWellRow(const FormRow& row);
    void show(const FormRow& row) override;

private:
    QLabel& m_label;
    QtColorWell* m_well;
    std::function<void(const Color&)> m_set;
};

} // namespace haloric
