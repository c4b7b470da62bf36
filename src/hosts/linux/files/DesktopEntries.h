// The installed applications, as far as windows can be matched with them. The identifier of an application is the
// name of its desktop entry without ".desktop", for instance "org.gnome.Nautilus". Main thread.
#pragma once

#include "hosts/x11/windows/X11Client.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace haloric {

class DesktopEntries {
public:
    DesktopEntries();
    ~DesktopEntries();
    DesktopEntries(const DesktopEntries&) = delete;
    DesktopEntries& operator=(const DesktopEntries&) = delete;

    struct Entry {
        std::string identifier;
        std::string windowClass; // StartupWMClass; empty when the entry names none
    };

    // Which application a window belongs to: the identifier that the window gives itself; else the entry that
    // claims its class or instance name, then the entry named like one of them, each first as written and then
    // regardless of case; else the class name. Absent when the window tells nothing. What is installed is read again
    // only after it has changed.
    std::optional<std::string> identifier(const ApplicationNames& names);

    // The matching alone. Absent when no entry fits.
    static std::optional<std::string> match(const ApplicationNames& names, const std::vector<Entry>& entries);

private:
    class Changes;

    void readInstalled();

    std::unique_ptr<Changes> m_changes;
    std::map<std::pair<std::string, std::string>, std::string> m_known; // by class and instance name
    std::optional<std::vector<Entry>> m_installed;                      // absent until it is needed
};

} // namespace haloric
