// Where the widgets of this program are on the screen, for a test that clicks on them.
#pragma once

#include <optional>
#include <string>

#include <QRect>

namespace haloric {

class WidgetFinder {
public:
    // In pixels of the root window. Looks for a visible widget of that name or class, a button with that text, an item
    // of an open menu or of a list. Absent while there is none.
    static std::optional<QRect> find(const std::string& name);

    // The name of the widget that has the keyboard, else its text or class; empty without one.
    static std::string focused();

    // What assistive technology reads: name and description of the widget with that name.
    static std::string described(const std::string& name);

    // What an item of an open menu with that text tells when the pointer rests on it; empty when it tells nothing.
    static std::string toolTip(const std::string& item);

    // The texts in the visible window with that title, from top to bottom with bars between them.
    static std::string labels(const std::string& title);
};

} // namespace haloric
