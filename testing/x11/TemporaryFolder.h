// A private folder below the system's temporary one, removed with everything in it when its owner goes.
#pragma once

#include <filesystem>

namespace haloric {

class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }

    // Makes a folder inside, readable by this user alone.
    std::filesystem::path makeFolder(const std::filesystem::path& name) const;

private:
    std::filesystem::path m_path;
};

} // namespace haloric
