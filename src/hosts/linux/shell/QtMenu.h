// A menu model as a menu of Qt. The model's items keep their number, order and nesting. `update` applies the changes of
// what they show. Main thread.
#pragma once

#include "platform/MenuDelegate.h"
#include "platform/MenuModel.h"

#include <memory>
#include <vector>

#include <QMenu>
#include <QObject>

class QAction;

namespace haloric {

class QtMenu final : public QObject {
public:
    // Both outlive it.
    QtMenu(const MenuModel& model, MenuDelegate& delegate);
    ~QtMenu() override;

    // Applies the items' present titles, marks and states.
    void update();

    // Renders the images again, in the colours of the present palette.
    void updateImages();

    QMenu& menu() { return m_menu; }

private:
    using Position = std::vector<std::size_t>; // the index at each level

    void build(QMenu& menu, const std::vector<MenuItem>& items, const Position& parent);
    void update(const QMenu& menu, const std::vector<MenuItem>& items);
    void updateImages(const QMenu& menu, const std::vector<MenuItem>& items);
    bool eventFilter(QObject* object, QEvent* event) override;
    void aboutToShow();
    void perform(const Position& position);

    const MenuModel& m_model;
    MenuDelegate& m_delegate;
    QMenu m_menu;
};

} // namespace haloric
