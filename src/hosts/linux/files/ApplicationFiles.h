// The installed applications as files: their desktop entries, as GIO finds them. Main thread; reads from the disk.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace haloric {

struct ApplicationFile {
    std::string path; // of the desktop entry
    std::string name; // in the user's language
    std::string icon; // a name of the icon theme, or an absolute path; empty when it has none
    friend bool operator==(const ApplicationFile&, const ApplicationFile&) = default;
};

class ApplicationFiles {
public:
    // The path of the entry with that identifier ("org.gnome.Nautilus"); absent when there is none, or it is deleted.
    static std::optional<std::string> path(std::string_view identifier);

    // The identifier of the entry at that path; absent when there is no desktop entry of an application.
    static std::optional<std::string> identifier(const std::string& path);

    // Absent likewise.
    static std::optional<ApplicationFile> at(const std::string& path);

    // Those that a menu of applications shows, in no particular order.
    static std::vector<ApplicationFile> all();
};

} // namespace haloric
