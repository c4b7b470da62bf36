// The installed folder "….app" that holds the program, its Info.plist and its icon. Reads the disk only during
// construction; any thread after that.
#pragma once

#include "platform/Bundle.h"

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace haloric {

// The keys, texts, numbers and booleans of an information dictionary (an XML property list). Only the entries of the
// outermost dictionary count. Values of other types are skipped, but their keys are kept. Parsing ends at the first
// error.
class InfoPlist {
public:
    InfoPlist() = default;
    static InfoPlist parse(std::string_view xml);

    std::optional<std::string> string(std::string_view key) const;
    std::optional<double> number(std::string_view key) const; // 1 or 0 for a boolean
    bool contains(std::string_view key) const { return m_keys.contains(key); }
    bool isEmpty() const { return m_strings.empty(); }

private:
    std::map<std::string, std::string, std::less<>> m_strings;
    std::map<std::string, double, std::less<>> m_numbers;
    std::set<std::string, std::less<>> m_keys;
};

class LinuxBundle final : public Bundle {
public:
    // The bundle of the running program.
    LinuxBundle();

    // `executable` is an absolute path.
    explicit LinuxBundle(const std::filesystem::path& executable);

    std::string path() const override { return m_path; }

    // The program's quoted path: on Linux a bundle is started by its executable.
    std::string relaunchCommand() const override;

    // The absolute path of the program's executable file.
    const std::filesystem::path& executable() const { return m_executable; }

    std::optional<std::string> identifier() const override { return infoString("CFBundleIdentifier"); }
    bool hasInfo(std::string_view key) const override { return m_info.contains(key); }
    std::optional<std::string> infoString(std::string_view key) const override { return m_info.string(key); }
    std::optional<double> infoNumber(std::string_view key) const override { return m_info.number(key); }

private:
    std::filesystem::path m_executable;
    std::string m_path;
    InfoPlist m_info;
};

} // namespace haloric
