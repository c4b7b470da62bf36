// The settings as files in ~/.config/com.kestrow.haloric: one file for each key, named like the key. Main thread.
//
// A value is written to a temporary file, which is then renamed over the old one, so a killed process leaves the old or
// the new value whole. Nothing is flushed to the disk: dragging a slider saves with every step, on the thread that
// moves the highlight, and the usual file systems (ext4, btrfs) write a file out before they rename it over another. A
// power failure can lose the last change.
#pragma once

#include "platform/Processes.h"
#include "platform/UserDefaults.h"

#include <set>
#include <string>

namespace haloric {

class LinuxUserDefaults final : public UserDefaults {
public:
    // "com.kestrow.haloric" in $XDG_CONFIG_HOME, or in $HOME/.config if that is unset or not an absolute path. Empty
    // if neither is set.
    static std::string standardFolder(const Processes& processes);

    // The first value creates the folder (mode 0700). With an empty folder, nothing is stored.
    explicit LinuxUserDefaults(std::string folder) : m_folder(std::move(folder)) {}

    // Absent also if the file is not a regular one, or larger than 16 MiB.
    std::optional<std::string> data(std::string_view key) const override;

    // Mode 0600. A symbolic link is kept; its target is replaced. The first value of a key also removes temporary
    // files of killed processes.
    void setData(std::string_view key, std::string_view bytes) override;

private:
    std::string pathOf(std::string_view key) const; // empty if the key is not a file name

    std::string m_folder;
    std::set<std::string, std::less<>> m_tidiedKeys;
};

} // namespace haloric
