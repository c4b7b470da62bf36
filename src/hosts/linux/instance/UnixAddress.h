// The address of a Unix socket.
#pragma once

#include <cstring>
#include <filesystem>
#include <optional>
#include <string>

#include <sys/socket.h>
#include <sys/un.h>

namespace haloric {

struct UnixAddress {
    sockaddr_un value{};

    // Absent for a path that is too long for one.
    static std::optional<UnixAddress> of(const std::filesystem::path& path)
    {
        const std::string& text = path.native();
        UnixAddress address;
        if (text.size() >= sizeof address.value.sun_path)
            return {};
        address.value.sun_family = AF_UNIX;
        std::memcpy(address.value.sun_path, text.c_str(), text.size() + 1);
        return address;
    }

    const sockaddr* raw() const { return reinterpret_cast<const sockaddr*>(&value); }
    static constexpr socklen_t kSize = sizeof(sockaddr_un);
};

} // namespace haloric
