// The installed applications, as their desktop entries. An application's identifier is the name of its entry without
// ".desktop", for instance "org.gnome.Nautilus". Main thread; reads from the disk.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace haloric {

// The names by which a window identifies its application; each may be empty.
struct ApplicationNames {
    std::string applicationId; // _GTK_APPLICATION_ID
    std::string instanceName;  // WM_CLASS, first part
    std::string className;     // WM_CLASS, second part
    friend bool operator==(const ApplicationNames&, const ApplicationNames&) = default;
};

struct ApplicationFile {
    std::string path; // of the desktop entry
    std::string name; // in the user's language
    std::string icon; // a name in the icon theme, or an absolute path; empty if the entry has none
    friend bool operator==(const ApplicationFile&, const ApplicationFile&) = default;
};

class DesktopEntries {
public:
    DesktopEntries();
    ~DesktopEntries();
    DesktopEntries(const DesktopEntries&) = delete;
    DesktopEntries& operator=(const DesktopEntries&) = delete;

    // The identifier of the application that a window belongs to: its application id; otherwise the entry that `match`
    // finds; otherwise the class name. Absent if all names are empty or not UTF-8. The installed entries are read again
    // only after they have changed.
    std::optional<std::string> identifier(const ApplicationNames& names);

    struct Entry {
        std::string identifier;
        std::string windowClass; // StartupWMClass; may be empty
        bool isShown = true;     // in menus
    };

    // The entry that claims the class or instance name, then the entry named like one of them, each first
    // case-sensitively and then not. Of several that match alike: one that menus show, then the one named like the
    // class, then the first by identifier. Absent if none matches.
    static std::optional<std::string> match(const ApplicationNames& names, const std::vector<Entry>& entries);

    // The path of the entry with that identifier; absent if there is none, or the user has deleted it.
    static std::optional<std::string> pathOf(std::string_view identifier);

    // The identifier that `identifier` returns for the windows of the application at that path; absent if there is no
    // application's desktop entry, or its name is not UTF-8.
    static std::optional<std::string> identifierAt(const std::string& path);

    // The application at that path; absent if there is no application's desktop entry.
    static std::optional<ApplicationFile> at(const std::string& path);

    // The applications that menus show and that have an identifier, in no particular order.
    static std::vector<ApplicationFile> shown();

private:
    class Changes;

    // All entries whose names are UTF-8.
    static std::vector<Entry> readInstalled();

    std::unique_ptr<Changes> m_changes;
    std::map<std::pair<std::string, std::string>, std::string> m_known; // by class and instance name
    std::optional<std::vector<Entry>> m_installed;                      // absent until it is needed
};

} // namespace haloric
