// Starting at login by an entry in the user's autostart folder, which every common desktop reads. What the user
// switches off in the desktop's own settings counts as waiting for approval. Main thread; may block on the disk.
#pragma once

#include "platform/LoginItemService.h"
#include "platform/Processes.h"

#include <filesystem>
#include <string>

namespace haloric {

class LinuxLoginItemService final : public LoginItemService {
public:
    // The folder "autostart" of the user's configuration; empty when that is not known.
    static std::filesystem::path standardFolder(const Processes& processes);

    // `launcher` is the absolute path of the program that is to be started. Without a folder, registering fails.
    LinuxLoginItemService(std::filesystem::path autostartFolder, std::filesystem::path launcher);

    // `notFound` for an entry that starts nothing or cannot be read.
    LoginItemStatus status() const override;

    // Also enables again what was switched off, and leads to the program's present place.
    std::optional<PlatformError> registerApplication() override;

    // Takes the entry away; none there is as good.
    std::optional<PlatformError> unregisterApplication() override;

private:
    std::filesystem::path entry() const;
    PlatformError errorFor(int number, std::string_view failure) const;

    std::filesystem::path m_folder;
    std::filesystem::path m_launcher;
};

} // namespace haloric
