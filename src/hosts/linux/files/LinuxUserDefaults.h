// User defaults as files: one a key, named as the key, in one folder of the user's. Main thread.
//
// A value is written to a file beside the old one, which then takes its name, so that a run that is killed leaves the
// old or the new value whole. Nothing is flushed to the disk: dragging a slider saves with every step, on the thread
// that moves the highlight, and the usual file systems (ext4, btrfs) write a file out before it replaces another.
// What is at stake in a power failure is the last change.
#pragma once

#include "platform/Processes.h"
#include "platform/UserDefaults.h"

#include <set>
#include <string>

namespace haloric {

class LinuxUserDefaults final : public UserDefaults {
public:
    // "com.kestrow.haloric" in $XDG_CONFIG_HOME, or in $HOME/.config where that is unset or no absolute path. Empty
    // when neither is known.
    static std::string standardFolder(const Processes& processes);

    // The folder is made (mode 0700) with the first value. Without a folder, nothing is ever stored.
    explicit LinuxUserDefaults(std::string folder) : m_folder(std::move(folder)) {}

    // Absent also for what is no ordinary file, or larger than any value could be.
    std::optional<std::string> data(std::string_view key) const override;

    // Mode 0600. A key whose file is a symbolic link keeps it: the file that it leads to is replaced. The first value
    // under a key takes away what runs that were killed left beside it.
    void setData(std::string_view key, std::string_view bytes) override;

private:
    std::string pathOf(std::string_view key) const; // empty when there is none

    std::string m_folder;
    std::set<std::string, std::less<>> m_tidiedKeys;
};

} // namespace haloric
