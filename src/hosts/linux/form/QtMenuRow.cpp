#include "hosts/linux/form/QtMenuRow.h"

#include "hosts/linux/qt/QtText.h"

#include <algorithm>

#include <QMenu>
#include <QPushButton>

namespace haloric {

namespace {

bool haveSameTitles(const FormMenu& a, const FormMenu& b)
{
    return std::ranges::equal(a.items, b.items, {}, &FormMenuItem::title, &FormMenuItem::title);
}

} // namespace

QtMenuRow::QtMenuRow(const FormRow& row) : QtFormRow(row), m_button(new QPushButton(this)), m_menu(new QMenu(m_button))
{
    m_button->setAutoDefault(false);
    m_button->setMenu(m_menu);
    m_button->setEnabled(false);
    addControlAlone(*m_button, row);
}

void QtMenuRow::show(const FormRow& row)
{
    const auto& menu = std::get<FormMenu>(row.control);
    m_button->setText(qtLabel(menu.label));
    m_button->setAccessibleName(qtText(menu.label));
    const bool isSame = haveSameTitles(m_model, menu);
    m_model = menu;
    if (isSame)
        return;
    for (QAction* action : m_menu->actions()) { // one of them may be the one that brought us here
        m_menu->removeAction(action);
        action->deleteLater();
    }
    for (std::size_t index = 0; index < m_model.items.size(); ++index) {
        m_menu->addAction(qtLabel(m_model.items[index].title), this, [this, index] {
            if (const Task perform = m_model.items.at(index).perform)
                perform();
        });
    }
    m_button->setEnabled(!m_model.items.empty());
}

} // namespace haloric
