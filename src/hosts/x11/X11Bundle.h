// The installed folder "….app" that holds the program, its Info.plist and its icon. Read once, at construction. Any
// thread after that.
#pragma once

#include "hosts/x11/X11InfoDictionary.h"
#include "platform/Bundle.h"

#include <filesystem>

namespace haloric {

class X11Bundle final : public Bundle {
public:
    // The bundle of the running program.
    X11Bundle();

    // `executable` is an absolute path.
    explicit X11Bundle(const std::filesystem::path& executable);

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
    X11InfoDictionary m_info;
};

} // namespace haloric
