#include "testing/x11/TemporaryFolder.h"

#include <stdexcept>
#include <string>
#include <system_error>

#include <cstdlib>

namespace haloric {

TemporaryFolder::TemporaryFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "haloric-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("cannot create a temporary folder");
    m_path = name;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::filesystem::path TemporaryFolder::makeFolder(const std::filesystem::path& name) const
{
    const auto folder = m_path / name;
    std::filesystem::create_directories(folder);
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
    return folder;
}

} // namespace haloric
