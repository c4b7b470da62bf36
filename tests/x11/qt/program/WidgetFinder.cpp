#include "x11/qt/program/WidgetFinder.h"

#include <algorithm>

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QWidget>

namespace haloric {

namespace {

std::optional<QRect> onRoot(const QWidget& widget, const QRect& part)
{
    const double scale = widget.devicePixelRatio();
    const QPointF topLeft = widget.mapToGlobal(QPointF(part.topLeft()));
    return QRectF(topLeft * scale, QSizeF(part.size()) * scale).toRect();
}

QString plain(QString text) { return text.replace("&&", "&"); }

QWidget* named(const QString& name)
{
    for (QWidget* widget : QApplication::allWidgets()) {
        const auto* button = qobject_cast<QAbstractButton*>(widget);
        const bool hasName = widget->objectName() == name || widget->metaObject()->className() == name ||
                             (button && plain(button->text()) == name);
        if (widget->isVisible() && hasName)
            return widget;
    }
    return nullptr;
}

} // namespace

std::optional<QRect> WidgetFinder::find(const std::string& name)
{
    const QString wanted = QString::fromStdString(name);
    for (const QWidget* widget : QApplication::allWidgets()) {
        if (!widget->isVisible())
            continue;
        if (const auto* menu = qobject_cast<const QMenu*>(widget)) {
            for (QAction* action : menu->actions()) {
                if (plain(action->text()) == wanted && menu->actionGeometry(action).isValid())
                    return onRoot(*menu, menu->actionGeometry(action));
            }
        }
        if (const auto* list = qobject_cast<const QListView*>(widget)) {
            for (int row = 0; list->model() && row < list->model()->rowCount(); ++row) {
                const QModelIndex index = list->model()->index(row, 0);
                if (!list->isRowHidden(row) && index.data().toString() == wanted)
                    return onRoot(*list->viewport(), list->visualRect(index));
            }
        }
    }
    const QWidget* widget = named(wanted);
    return widget ? onRoot(*widget, widget->rect()) : std::nullopt;
}

std::string WidgetFinder::focused()
{
    const QWidget* widget = QApplication::focusWidget();
    if (!widget)
        return {};
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    QString name = widget->objectName();
    if (name.isEmpty())
        name = button ? plain(button->text()) : widget->metaObject()->className();
    return name.toStdString();
}

std::string WidgetFinder::described(const std::string& name)
{
    QWidget* widget = named(QString::fromStdString(name));
    QAccessibleInterface* accessible = widget ? QAccessible::queryAccessibleInterface(widget) : nullptr;
    if (!accessible)
        return {};
    return accessible->text(QAccessible::Name).toStdString() + ", " +
           accessible->text(QAccessible::Description).toStdString();
}

std::string WidgetFinder::toolTip(const std::string& item)
{
    for (const QWidget* widget : QApplication::allWidgets()) {
        const auto* menu = qobject_cast<const QMenu*>(widget);
        if (!menu || !menu->isVisible() || !menu->toolTipsVisible())
            continue;
        for (const QAction* action : menu->actions()) {
            // An action without a tooltip returns its text.
            if (plain(action->text()).toStdString() == item && action->toolTip() != action->text())
                return action->toolTip().toStdString();
        }
    }
    return {};
}

std::string WidgetFinder::labels(const std::string& title)
{
    QStringList texts;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible() || window->windowTitle().toStdString() != title)
            continue;
        QList<QLabel*> labels = window->findChildren<QLabel*>();
        std::ranges::sort(labels, {}, [](const QLabel* label) { return label->y(); });
        for (const QLabel* label : labels)
            if (!label->text().isEmpty())
                texts.append(label->text());
    }
    return texts.join("|").toStdString();
}

} // namespace haloric
