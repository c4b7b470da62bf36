// A private folder below the temporary folder of the operating system. The destructor removes it with its contents.
#pragma once

#include <filesystem>

namespace haloric {

class TemporaryFolder {
public:
    TemporaryFolder(); // throws std::runtime_error when that fails
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }

    // Creates a folder inside, readable by this user only, and returns its path.
    std::filesystem::path makeFolder(const std::filesystem::path& name) const;

private:
    std::filesystem::path m_path;
};

} // namespace haloric
