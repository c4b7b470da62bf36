#include "hosts/linux/instance/InstancePaths.h"

#include "hosts/linux/files/XdgFolders.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

namespace haloric {
namespace {

constexpr const char* kName = "com.kestrow.haloric";

// Whether it is a folder itself, no link to one, that this user owns and nobody else may write to.
bool isPrivate(const std::filesystem::path& folder)
{
    struct stat status {};
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
           (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

// The server's part of the name: ":0.1" is another screen of ":0".
std::string_view withoutScreen(std::string_view display)
{
    const auto colon = display.rfind(':');
    const auto dot = display.rfind('.');
    const bool hasScreen = colon != std::string_view::npos && dot != std::string_view::npos && dot > colon;
    return hasScreen ? display.substr(0, dot) : display;
}

// As a part of a file name; different displays have different ones.
std::string encoded(std::string_view display)
{
    std::string name;
    for (const char character : display) {
        const bool isPlain = (character >= '0' && character <= '9') || (character >= 'a' && character <= 'z') ||
                             (character >= 'A' && character <= 'Z') || character == '-' || character == '.';
        if (isPlain) {
            name += character;
            continue;
        }
        std::array<char, 2> digits{};
        const auto end = std::to_chars(digits.begin(), digits.end(), static_cast<unsigned char>(character), 16).ptr;
        name += "_" + std::string(digits.begin(), end) + "_";
    }
    return name;
}

} // namespace

std::optional<InstancePaths> InstancePaths::find(const Processes& processes, std::string_view display,
                                                 const std::filesystem::path& fallback)
{
    const std::string_view server = withoutScreen(display);
    if (server.empty())
        return {};
    std::filesystem::path folder = XdgFolders::runtime(processes);
    if (!isPrivate(folder)) {
        folder = fallback / (std::string(kName) + "-" + std::to_string(geteuid()));
        mkdir(folder.c_str(), 0700);
        if (!isPrivate(folder))
            return {};
    }
    const std::string stem = std::string(kName) + "-" + encoded(server);
    return InstancePaths{.socket = folder / (stem + ".socket"), .lock = folder / (stem + ".lock")};
}

} // namespace haloric
