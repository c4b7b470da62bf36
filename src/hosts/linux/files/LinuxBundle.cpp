#include "hosts/linux/files/LinuxBundle.h"

#include <fstream>
#include <iterator>

namespace haloric {

namespace {

std::filesystem::path runningExecutable()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

// The nearest folder above the program that is a bundle; outside one, the program's own folder.
std::filesystem::path bundleFolder(const std::filesystem::path& executable)
{
    for (auto folder = executable.parent_path(); folder.has_relative_path(); folder = folder.parent_path()) {
        if (folder.extension() == ".app")
            return folder;
    }
    return executable.parent_path();
}

InfoPlist readDictionary(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    const std::string xml{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    return InfoPlist::parse(xml);
}

std::string shellQuoted(std::string_view text)
{
    std::string quoted = "'";
    for (const char character : text)
        quoted += character == '\'' ? std::string("'\\''") : std::string(1, character);
    return quoted + "'";
}

} // namespace

std::string LinuxBundle::openCommand() const { return shellQuoted(m_executable.string()) + " #"; }

LinuxBundle::LinuxBundle() : LinuxBundle(runningExecutable()) {}

LinuxBundle::LinuxBundle(const std::filesystem::path& executable) : m_executable(executable)
{
    const auto folder = bundleFolder(executable);
    m_path = folder.string();
    if (folder.extension() == ".app")
        m_info = readDictionary(folder / "Info.plist");
}

} // namespace haloric
