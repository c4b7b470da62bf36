// Finds widgets of this program for a test: their rectangles, names and texts.
#pragma once

#include <optional>
#include <string>

#include <QRect>

namespace haloric {

class WidgetFinder {
public:
    // The rectangle, in pixels of the root window, of a visible widget with that object name or class, of a button with
    // that text, or of an item of an open menu or a list. Absent if there is none.
    static std::optional<QRect> find(const std::string& name);

    // The name of the widget with the keyboard focus, otherwise its text or class; empty without focus.
    static std::string focused();

    // Accessible name and description of the widget with that name.
    static std::string described(const std::string& name);

    // The tooltip of the item with that text in an open menu; empty if it has none.
    static std::string toolTip(const std::string& item);

    // The texts in the visible window with that title, from top to bottom, separated by bars.
    static std::string labels(const std::string& title);
};

} // namespace haloric
