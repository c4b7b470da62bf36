#include "hosts/linux/files/FileTrouble.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace haloric {

namespace {

constexpr const char* kErrorDomain = "POSIX";

struct Reason {
    std::string description;
    std::string suggestion;
};

Reason reasonFor(int number, const std::string& folder)
{
    switch (number) {
    case EACCES:
    case EPERM:
    case EROFS:
        return {"The folder " + folder + " cannot be changed.", "Make it writable, then try again."};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return {"The disk has no room left for " + folder + ".", "Make some room, then try again."};
    case ENOTDIR:
    case EEXIST:
    case EISDIR:
        return {"Something else is in the way of " + folder + ".", "Move it away, then try again."};
    default:
        return {"The folder " + folder + " does not answer: " + std::generic_category().message(number) + ".", ""};
    }
}

} // namespace

PlatformError fileTrouble(int number, const std::string& folder)
{
    Reason reason = reasonFor(number, folder);
    return {kErrorDomain, number, std::move(reason.description), std::move(reason.suggestion)};
}

PlatformError noUserFolder() { return {kErrorDomain, ENOENT, "Neither XDG_CONFIG_HOME nor HOME names a folder.", ""}; }

} // namespace haloric
