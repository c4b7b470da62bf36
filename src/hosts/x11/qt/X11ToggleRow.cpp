#include "hosts/x11/qt/X11ToggleRow.h"

#include "hosts/x11/qt/X11Text.h"

#include <QLabel>

namespace haloric {

X11ToggleRow::X11ToggleRow(const FormRow& row) : X11FormRow(row), m_label(addLabel()), m_switch(new X11Switch(this))
{
    addControl(*m_switch, row);
    connect(m_switch, &QCheckBox::clicked, this, [this](bool isOn) {
        if (const auto set = m_set)
            set(isOn);
    });
}

void X11ToggleRow::show(const FormRow& row)
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
