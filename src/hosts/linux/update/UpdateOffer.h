// What a feed offers to whoever has a version installed. Pure.
#pragma once

#include "hosts/linux/update/Appcast.h"

#include <optional>
#include <string>
#include <string_view>

namespace haloric {

struct UpdateOffer {
    std::string version; // to be shown
    std::string notes;   // plain text; may be empty
    std::string page;    // where to get it, an https address; empty when the feed names none

    // The newest version that is newer than `installed`, for everybody, and for this system or for any.
    static std::optional<UpdateOffer> find(const Appcast& appcast, std::string_view installed);

    // Whether it is a whole address of a web page that is fetched safely.
    static bool isSecurePage(std::string_view address);
};

} // namespace haloric
