// The widgets of a list whose elements have ids, in the order of the list. When the list is replaced, an element keeps
// its widget as long as there is one of its id and kind; others are made or taken away. What is taken away is destroyed
// later, as the replacement may come from within one of its own handlers. Main thread.
#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <QBoxLayout>
#include <QWidget>

namespace haloric {

// A Widget is made by `Widget::make(model)`, tells by `isFor(model)` whether it can show a model, and does by
// `show(model)`.
template <class Widget, class Layout = QBoxLayout>
class QtKeyedWidgets {
public:
    // They are the first in the layout, which outlives it.
    explicit QtKeyedWidgets(Layout& layout) : m_layout(layout) {}

    // True when a widget was made or taken away, or changed its place.
    template <class Model>
    bool show(const std::vector<Model>& models)
    {
        std::vector<Element> before = std::exchange(m_elements, {});
        bool isRearranged = before.size() != models.size();
        for (const Model& model : models) {
            const auto known = std::ranges::find_if(before, [&model](const Element& element) {
                return element.widget && element.id == model.id && element.widget->isFor(model);
            });
            const int place = static_cast<int>(m_elements.size());
            Widget* widget = nullptr;
            if (known != before.end()) {
                widget = std::exchange(known->widget, nullptr);
                widget->show(model);
            } else {
                widget = Widget::make(model);
            }
            if (m_layout.indexOf(widget) != place) {
                m_layout.insertWidget(place, widget);
                isRearranged = true;
            }
            m_elements.push_back({model.id, widget});
        }
        for (const Element& element : before) {
            if (element.widget)
                remove(*element.widget);
        }
        return isRearranged;
    }

    template <class Visit>
    void forEach(const Visit& visit) const
    {
        for (const Element& element : m_elements)
            visit(*element.widget);
    }

private:
    struct Element {
        std::string id;
        Widget* widget; // the layout's parent owns it
    };

    void remove(Widget& widget)
    {
        m_layout.removeWidget(&widget);
        widget.hide();
        widget.setParent(nullptr);
        widget.deleteLater();
    }

    Layout& m_layout;
    std::vector<Element> m_elements;
};

} // namespace haloric
