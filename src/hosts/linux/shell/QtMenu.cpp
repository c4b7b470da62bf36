#include "hosts/linux/shell/QtMenu.h"

#include "hosts/linux/qt/QtImages.h"
#include "hosts/linux/qt/QtText.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QPointer>

namespace haloric {

namespace {

void show(QAction& action, const MenuItem& item)
{
    action.setText(qtLabel(item.title));
    action.setCheckable(item.isCheckable);
    action.setChecked(item.isOn);
    action.setEnabled(item.isEnabled);
    action.setVisible(!item.isHidden);
    action.setToolTip(qtText(item.toolTip));
}

} // namespace

QtMenu::QtMenu(const MenuModel& model, MenuDelegate& delegate) : m_model(model), m_delegate(delegate)
{
    build(m_menu, model.items, {});
    m_menu.installEventFilter(this);
    QObject::connect(&m_menu, &QMenu::aboutToShow, &m_menu, [this] { aboutToShow(); });
}

QtMenu::~QtMenu() = default;

void QtMenu::build(QMenu& menu, const std::vector<MenuItem>& items, const Position& parent)
{
    menu.setToolTipsVisible(true);
    for (std::size_t index = 0; index < items.size(); ++index) {
        const MenuItem& item = items[index];
        Position position = parent;
        position.push_back(index);
        QAction* action = nullptr;
        if (item.isSeparator) {
            action = menu.addSeparator();
            action->setVisible(!item.isHidden);
            continue;
        }
        if (item.submenu.empty()) {
            action = menu.addAction(QString());
        } else {
            QMenu* submenu = menu.addMenu(QString());
            build(*submenu, item.submenu, position);
            action = submenu->menuAction();
        }
        show(*action, item);
        action->setIcon(QtImages::icon(item.image, menu.palette()));
        if (!item.keyEquivalent.empty())
            action->setShortcut(QKeySequence("Ctrl+" + qtText(item.keyEquivalent).toUpper()));
        // Queued, so that an action that destroys this menu runs when Qt has left it.
        QObject::connect(
            action, &QAction::triggered, this, [this, position] { perform(position); }, Qt::QueuedConnection);
    }
}

void QtMenu::update() { update(m_menu, m_model.items); }

void QtMenu::update(const QMenu& menu, const std::vector<MenuItem>& items)
{
    const QList<QAction*> actions = menu.actions();
    for (std::size_t index = 0; index < items.size() && index < static_cast<std::size_t>(actions.size()); ++index) {
        QAction& action = *actions[static_cast<qsizetype>(index)];
        if (!items[index].isSeparator)
            show(action, items[index]);
        if (action.menu())
            update(*action.menu(), items[index].submenu);
    }
}

void QtMenu::updateImages() { updateImages(m_menu, m_model.items); }

void QtMenu::updateImages(const QMenu& menu, const std::vector<MenuItem>& items)
{
    const QList<QAction*> actions = menu.actions();
    for (std::size_t index = 0; index < items.size() && index < static_cast<std::size_t>(actions.size()); ++index) {
        QAction& action = *actions[static_cast<qsizetype>(index)];
        if (!items[index].isSeparator)
            action.setIcon(QtImages::icon(items[index].image, QApplication::palette()));
        if (action.menu())
            updateImages(*action.menu(), items[index].submenu);
    }
}

// Qt applies shortcuts only in windows, so the open menu handles its items' shortcuts here.
bool QtMenu::eventFilter(QObject* object, QEvent* event)
{
    if (object == &m_menu && event->type() == QEvent::KeyPress) {
        const QKeySequence keys(static_cast<QKeyEvent*>(event)->keyCombination());
        for (QAction* action : m_menu.actions()) {
            if (!action->shortcut().isEmpty() && action->shortcut() == keys && action->isEnabled()) {
                m_menu.hide();
                action->trigger();
                return true;
            }
        }
    }
    return QObject::eventFilter(object, event);
}

void QtMenu::aboutToShow()
{
    m_delegate.menuNeedsUpdate();
    update();
}

void QtMenu::perform(const Position& position)
{
    const QPointer<QtMenu> self(this);
    if (const MenuItem* item = itemAt(m_model, position))
        performAction(*item);
    if (self)
        update(); // Qt has toggled the check mark
}

} // namespace haloric
