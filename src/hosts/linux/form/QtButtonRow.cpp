#include "hosts/linux/form/QtButtonRow.h"

#include "hosts/linux/qt/QtText.h"

#include <QPushButton>

namespace haloric {

QtButtonRow::QtButtonRow(const FormRow& row) : QtFormRow(row), m_button(new QPushButton(this))
{
    m_button->setAutoDefault(false);
    addControlAlone(*m_button, row);
    connect(m_button, &QPushButton::clicked, this, [this] {
        if (const Task perform = m_perform)
            perform();
    });
}

void QtButtonRow::show(const FormRow& row)
{
    const auto& button = std::get<FormButton>(row.control);
    m_perform = button.perform;
    m_button->setText(qtLabel(button.label));
    m_button->setAccessibleName(qtText(button.label));
}

} // namespace haloric
