// Starting at login by a desktop entry in ~/.config/autostart, which every common desktop reads. An entry that the user
// disables in the desktop's settings counts as waiting for approval. Main thread; may block on the disk.
#pragma once

#include "platform/LoginItemService.h"
#include "platform/Processes.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace haloric {

// The text of the desktop entry. Pure.
struct AutostartEntry {
    static std::string fileName();

    enum class State {
        enabled,
        disabled, // the user or the desktop left the entry in place and marked it
        unusable, // no entry, or one that starts nothing
    };

    // An entry that starts the program at `launcher`, an absolute path with any characters.
    static std::string text(std::string_view launcher);

    static State stateOf(std::string_view text);
};

class LinuxLoginItemService final : public LoginItemService {
public:
    // ~/.config/autostart, or its equivalent by XDG_CONFIG_HOME; empty if neither variable is set.
    static std::filesystem::path standardFolder(const Processes& processes);

    // `launcher` is the absolute path of the program to start. With an empty folder, registering fails.
    LinuxLoginItemService(std::filesystem::path autostartFolder, std::filesystem::path launcher);

    // `notFound` for an entry that starts nothing or cannot be read.
    LoginItemStatus status() const override;

    // Replaces an existing entry, so it also enables a disabled one and updates the program's path.
    std::optional<PlatformError> registerApplication() override;

    // Removes the entry; succeeds if there is none.
    std::optional<PlatformError> unregisterApplication() override;

private:
    std::filesystem::path entry() const;
    PlatformError errorFor(int number, std::string_view failure) const;

    std::filesystem::path m_folder;
    std::filesystem::path m_launcher;
};

} // namespace haloric
