#include "hosts/linux/form/QtToggleRow.h"

#include "hosts/linux/qt/QtText.h"

#include <QLabel>

namespace haloric {

QtToggleRow::QtToggleRow(const FormRow& row) : QtFormRow(row), m_label(addLabel()), m_switch(new QtSwitch(this))
{
    addControl(*m_switch, row);
    connect(m_switch, &QCheckBox::clicked, this, [this](bool isOn) {
        if (const auto set = m_set)
            set(isOn);
    });
}

void QtToggleRow::show(const FormRow& row)
{
    const auto& toggle = std::get<FormToggle>(row.control);
    m_set = toggle.set;
    m_label.setText(qtText(toggle.label));
    m_label.setEnabled(toggle.isEnabled);
    m_switch->setAccessibleName(qtText(toggle.label));
    m_switch->setChecked(toggle.isOn);
    m_switch->setEnabled(toggle.isEnabled);
}

} // namespace haloric
