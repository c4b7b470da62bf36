// The installed applications, as far as windows can be matched with them. The identifier of an application is the
// name of its desktop entry without ".desktop", for instance "org.gnome.Nautilus". Main thread.
#pragma once

#include "hosts/x11/X11Client.h"

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace haloric {

class X11DesktopEntries {
public:
    struct Entry {
        std::string identifier;
        std::string windowClass; // StartupWMClass; empty when the entry names none
    };

    // Which application a window belongs to: the identifier that the window gives itself; else the entry that
    // claims its class or instance name, then the entry named like one of them, each first as written and then
    // regardless of case; else the class name. Absent when the window tells nothing.
    std::optional<std::string> identifier(const X11ApplicationNames& names);

    // The matching alone. Absent when no entry fits.
    static std::optional<std::string> match(const X11ApplicationNames& names, const std::vector<Entry>& entries);

private:
    void readInstalled();

    std::map<std::pair<std::string, std::string>, std::string> m_found; // by class and instance name
    std::vector<Entry> m_installed;
    std::optional<std::chrono::steady_clock::time_point> m_readAt;
};

} // namespace haloric
