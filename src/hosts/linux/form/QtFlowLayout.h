// Widgets from left to right, in as many lines as they need. Main thread.
#pragma once

#include <vector>

#include <QLayout>

namespace haloric {

class QtFlowLayout final : public QLayout {
public:
    ~QtFlowLayout() override;

    void insertWidget(int index, QWidget* widget);

    // QLayout
    void addItem(QLayoutItem* item) override { m_items.push_back(item); }
    int count() const override { return static_cast<int>(m_items.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override { return minimumSize(); }
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    template <class Place>
    int flow(const QRect& rect, const Place& place) const;

    std::vector<QLayoutItem*> m_items;
};

} // namespace haloric
