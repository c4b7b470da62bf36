// The two symbols that the program asks of its platform by name: an application without an icon of its own, and taking
// something out of a list. Main thread.
#pragma once

#include <string_view>

#include <QIcon>
#include <QPalette>

namespace haloric {

class QtSymbols {
public:
    // "app" comes from the user's icon theme where that has one. Null for other names.
    static QIcon icon(std::string_view name, const QPalette& palette);
};

} // namespace haloric
