// A file of the kind that macOS keeps icons in (.icns): one picture in several sizes, each as a PNG.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace haloric {

class IconFile {
public:
    struct Member {
        std::string_view type; // a four-character code that stands for the size
        int pixels = 0;
    };

    // What a complete icon holds.
    static const std::vector<Member>& members();

    // The whole file, drawn afresh.
    static std::string bytes();

    // The PNG of the member of that type in such a file; empty when it is not there or the file is broken.
    static std::string_view find(std::string_view file, std::string_view type);
};

} // namespace haloric
