// The installed folder "….app" that holds the program, its Info.plist and its icon. Read once, at construction. Any
// thread after that.
#pragma once

#include "hosts/linux/files/InfoPlist.h"
#include "platform/Bundle.h"

#include <filesystem>

namespace haloric {

class LinuxBundle final : public Bundle {
public:
    // The bundle of the running program.
    LinuxBundle();

    // `executable` is an absolute path.
    explicit LinuxBundle(const std::filesystem::path& executable);

    std::string path() const override { return m_path; }

    // This program again: no tool opens bundles here. It knows its bundle, so the path that follows is a comment.
    std::string openCommand() const override;

    // The program's own file: an absolute path.
    const std::filesystem::path& executable() const { return m_executable; }

    std::optional<std::string> identifier() const override { return infoString("CFBundleIdentifier"); }
    bool hasInfo(std::string_view key) const override { return m_info.contains(key); }
    std::optional<std::string> infoString(std::string_view key) const override { return m_info.string(key); }

private:
    std::filesystem::path m_executable;
    std::string m_path;
    InfoPlist m_info;
};

} // namespace haloric
