// A temporary folder for settings files.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace haloric {

class UserDefaultsFolder {
public:
    UserDefaultsFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "haloric-defaults-XXXXXX").string();
        m_root = mkdtemp(pattern.data());
    }
    ~UserDefaultsFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_root, ignored);
    }
    UserDefaultsFolder(const UserDefaultsFolder&) = delete;
    UserDefaultsFolder& operator=(const UserDefaultsFolder&) = delete;

    std::filesystem::path root() const { return m_root; }
    std::filesystem::path path() const { return m_root / "config" / "com.kestrow.haloric"; }
    std::filesystem::path file() const { return path() / kKey; }

    static std::string contents(const std::filesystem::path& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    static void write(const std::filesystem::path& file, std::string_view text)
    {
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
    }

    static std::vector<std::string> names(const std::filesystem::path& folder)
    {
        std::vector<std::string> result;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            result.push_back(entry.path().filename().string());
        std::sort(result.begin(), result.end());
        return result;
    }
    std::vector<std::string> names() const { return names(path()); }

    static constexpr const char* kKey = "Haloric.settings.v1";

private:
    std::filesystem::path m_root;
};

} // namespace haloric
