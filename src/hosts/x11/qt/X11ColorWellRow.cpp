#include "hosts/x11/qt/X11ColorWellRow.h"

#include "hosts/x11/qt/X11Text.h"

#include <QLabel>

namespace haloric {

X11ColorWellRow::X11ColorWellRow(const FormRow& row)
    : X11FormRow(row),
      m_label(addLabel()),
      m_well(new X11ColorWell(this))
{
    addControl(*m_well, row);
    m_well->onChosen = [this](const Color& color) {
        if (const auto set = m_set)
            set(color);
    };
}

void X11ColorWellRow::show(const FormRow& row)
{
    const auto& well = std::get<FormColorWell>(row.control);
    m_set = well.set;
    m_label.setText(qtText(well.label));
    m_label.setEnabled(well.isEnabled);
    m_well->setTitle(qtText(well.label));
    m_well->setAccessibleName(qtText(well.label));
    m_well->setColor(well.color);
    m_well->setEnabled(well.isEnabled);
}

} // namespace haloric
