#include "hosts/linux/form/QtFlowLayout.h"

#include <algorithm>

#include <QWidget>
#include <QWidgetItem>

namespace haloric {

QtFlowLayout::~QtFlowLayout()
{
    for (const QLayoutItem* item : m_items)
        delete item;
}

void QtFlowLayout::insertWidget(int index, QWidget* widget)
{
    removeWidget(widget);
    addChildWidget(widget);
    m_items.insert(m_items.begin() + std::min(index, count()), new QWidgetItem(widget));
    invalidate();
}

QLayoutItem* QtFlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)] : nullptr;
}

QLayoutItem* QtFlowLayout::takeAt(int index)
{
    QLayoutItem* item = itemAt(index);
    if (item)
        m_items.erase(m_items.begin() + index);
    return item;
}

// Calls `place` for each item with its rectangle. Returns the height of all lines.
template <class Place>
int QtFlowLayout::flow(const QRect& rect, const Place& place) const
{
    const QRect inside = rect.marginsRemoved(contentsMargins());
    QPoint at = inside.topLeft();
    int lineHeight = 0;
    for (QLayoutItem* item : m_items) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint();
        if (at.x() > inside.left() && at.x() + size.width() > inside.right() + 1) {
            at = QPoint(inside.left(), at.y() + lineHeight + spacing());
            lineHeight = 0;
        }
        place(*item, QRect(at, size));
        at.rx() += size.width() + spacing();
        lineHeight = std::max(lineHeight, size.height());
    }
    return at.y() + lineHeight - rect.top() + contentsMargins().bottom();
}

int QtFlowLayout::heightForWidth(int width) const
{
    return flow(QRect(0, 0, width, 0), [](QLayoutItem&, const QRect&) {});
}

QSize QtFlowLayout::minimumSize() const
{
    QSize size(0, 0);
    for (const QLayoutItem* item : m_items)
        size = size.expandedTo(item->minimumSize());
    return size.grownBy(contentsMargins());
}

void QtFlowLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    flow(rect, [](QLayoutItem& item, const QRect& place) { item.setGeometry(place); });
}

} // namespace haloric
