// The settings as files in ~/.config/com.kestrow.haloric: one file for each key, named like the key. Main thread.
//
// A value is written to a temporary file, which is then renamed over the old one, so a killed process leaves the old or
// the new value whole. Nothing is flushed to the disk: dragging a slider saves with every step, on the thread that
// moves the highlight, and the usual file systems (ext4, btrfs) write a file out before they rename it over another. A
// power failure can lose the last change.
//
// A symbolic link in place of a file is followed to a regular file. Anything else that is no regular file (a link that
// leads nowhere, a folder, a pipe, a device) is neither read nor replaced.
#pragma once

#include "platform/Log.h"
#include "platform/Processes.h"
#include "platform/UserDefaults.h"

#include <cstddef>
#include <filesystem>
#include <set>
#include <string>

namespace haloric {

class LinuxUserDefaults final : public UserDefaults {
public:
    // "com.kestrow.haloric" in $XDG_CONFIG_HOME, or in $HOME/.config if that is unset or not an absolute path. Empty
    // if neither is set.
    static std::string standardFolder(const Processes& processes);

    // Bytes of a value that is read; the settings have less than 2 KiB and the identifiers of their applications.
    static constexpr std::size_t kMaximumSize = std::size_t{1} << 20;

    // Levels of brackets in a value that is read, which bounds the time and memory of reading it; the settings have
    // three.
    static constexpr std::size_t kMaximumNesting = 64;

    // The first value creates the folder (mode 0700). With an empty folder, nothing is stored. `log` receives a line
    // when a value is there and is not read; it may be null, and outlives this.
    explicit LinuxUserDefaults(std::string folder, Log* log = nullptr) : m_folder(std::move(folder)), m_log(log) {}

    // Absent also if the file is not a regular one, is larger than `kMaximumSize`, or is nested more deeply than
    // `kMaximumNesting`. Such a file stays as it is until the next value replaces it.
    std::optional<std::string> data(std::string_view key) const override;

    // Mode 0600. The first value of a key also removes temporary files of killed processes.
    std::optional<PlatformError> setData(std::string_view key, std::string_view bytes) override;

private:
    std::string pathOf(std::string_view key) const; // empty if the key is not a file name
    void reportUnread(const std::filesystem::path& path, std::string_view reason) const;

    std::string m_folder;
    Log* m_log;
    std::set<std::string, std::less<>> m_tidiedKeys;
};

} // namespace haloric
