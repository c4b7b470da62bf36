// An icon file of macOS (.icns): one picture in several sizes, each as a PNG.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace haloric {

class IconFile {
public:
    struct Member {
        std::string_view type; // four-character code of the size
        int pixels = 0;
    };

    // The members of a complete icon.
    static const std::vector<Member>& members();

    // The whole file, newly drawn.
    static std::string bytes();

    // The PNG of the member of that type in an icon file; empty if it is missing or the file is broken.
    static std::string_view find(std::string_view file, std::string_view type);
};

} // namespace haloric
