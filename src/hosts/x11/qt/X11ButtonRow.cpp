#include "hosts/x11/qt/X11ButtonRow.h"

#include "hosts/x11/qt/X11Text.h"

#include <QPushButton>

namespace haloric {

X11ButtonRow::X11ButtonRow(const FormRow& row) : X11FormRow(row), m_button(new QPushButton(this))
{
    m_button->setAutoDefault(false);
    addControlAlone(*m_button, row);
    connect(m_button, &QPushButton::clicked, this, [this] {
        if (const Task perform = m_perform)
            perform();
    });
}

void X11ButtonRow::show(const FormRow& row)
{
    const auto& button = std::get<FormButton>(row.control);
    m_perform = button.perform;
    m_button->setText(qtLabel(button.label));
    m_button->setAccessibleName(qtText(button.label));
}

} // namespace haloric
