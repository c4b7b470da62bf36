// A feed of updates: RSS with the appcast's namespace, parsed from text in memory. Pure.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace haloric {

// All in UTF-8; empty if the feed has no value.
struct AppcastItem {
    std::string version;        // for comparison
    std::string displayVersion; // for display
    std::string description;    // text or HTML
    std::string page;           // the web page of this version
    std::string download;
    std::string system;  // operating system; empty: any
    std::string channel; // for instance of testers; empty: for all users
};

struct Appcast {
    std::vector<AppcastItem> items;
    std::string page;  // the web page of the whole feed
    std::string error; // why the feed cannot be read; empty on success

    // Rejects feeds that define entities, because entities can expand without bounds, feeds nested deeper than 32
    // elements, and elements with more than 64 attributes, whose names the parser compares pair by pair. Gives up after
    // `limit`. Any thread.
    static Appcast parse(std::string_view bytes, std::chrono::milliseconds limit = std::chrono::seconds(2));
};

} // namespace haloric
