// The update that a feed offers to an installed version. Pure.
#pragma once

#include "hosts/linux/update/Appcast.h"

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace haloric {

// Versions are texts such as "1.4", "2.0.1", "2.0b3", "2.0-rc.1".
namespace AppVersion {

// Whether the text begins with a digit.
bool isVersion(std::string_view text);

// The newer version is the greater one. Numbers are compared by value, part by part; missing ones are zero. A part that
// begins with a letter makes a pre-release, which is older than the same version without it; letters are compared
// alphabetically, ignoring case. Text after a plus sign is ignored.
std::weak_ordering compare(std::string_view a, std::string_view b);

} // namespace AppVersion

struct UpdateOffer {
    std::string version; // for display
    std::string build;   // for comparison
    std::string notes;   // plain text; may be empty
    std::string page;    // the https address of a page for the download; empty if the feed has none

    // The newest item of the feed that is newer than `installed`, has no channel, and is for Linux or for any system.
    static std::optional<UpdateOffer> find(const Appcast& appcast, std::string_view installed);

    // Whether it is an absolute https address without user information.
    static bool isSecurePage(std::string_view address);
};

} // namespace haloric
