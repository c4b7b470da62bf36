// The widgets of a list whose elements have ids, in the order of the list. When the list is replaced, an element of the
// same id and kind keeps its widget; other widgets are created or removed. A removed widget is destroyed later, because
// one of its own handlers may have caused the replacement. Main thread.
#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <QBoxLayout>
#include <QWidget>

namespace haloric {

// `Widget::make(model)` creates a widget, `isFor(model)` returns whether it can show a model, `show(model)` shows it.
template <class Widget, class Layout = QBoxLayout>
class QtKeyedWidgets {
public:
    // The widgets are the first items of the layout. The layout outlives this object.
    explicit QtKeyedWidgets(Layout& layout) : m_layout(layout) {}

    // Returns true if a widget was created, removed or moved.
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
