// A feed of updates as text in memory: RSS with the appcast's own namespace. Pure.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace haloric {

// All in UTF-8; empty where the feed says nothing.
struct AppcastItem {
    std::string version;        // to be compared
    std::string displayVersion; // to be shown
    std::string description;    // text or HTML
    std::string page;           // the web page of this version
    std::string download;
    std::string system;  // which one it is for
    std::string channel; // of testers, for instance; empty is everybody's
};

struct Appcast {
    std::vector<AppcastItem> items;
    std::string page;  // the web page of the whole feed
    std::string error; // why it cannot be read; then nothing else counts

    // Feeds that define entities are not read, as a small one of those can grow without bounds; nor are those with
    // more than 32 elements within one another. It takes time in proportion to the bytes, whatever they are.
    static Appcast parse(std::string_view bytes);
};

} // namespace haloric
