#include "hosts/x11/server/X11Scale.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace haloric {

namespace {

constexpr double kUnscaledDotsPerInch = 96;
constexpr double kStepsPerUnit = 4; // quarters
constexpr double kSmallest = 1;
constexpr double kLargest = 4;
constexpr std::string_view kBlanks = " \t";

std::string_view withoutLeadingBlanks(std::string_view text)
{
    return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

} // namespace

double X11Scale::fromDotsPerInch(double dotsPerInch)
{
    if (!std::isfinite(dotsPerInch))
        return kSmallest;
    const double steps = std::floor(dotsPerInch / kUnscaledDotsPerInch * kStepsPerUnit);
    return std::clamp(steps / kStepsPerUnit, kSmallest, kLargest);
}

double X11Scale::fromResources(std::string_view resources)
{
    constexpr std::string_view kKey = "Xft.dpi:";
    while (!resources.empty()) {
        const auto end = std::min(resources.find('\n'), resources.size());
        const auto line = withoutLeadingBlanks(resources.substr(0, end));
        resources.remove_prefix(std::min(end + 1, resources.size()));
        if (!line.starts_with(kKey))
            continue;
        const auto value = withoutLeadingBlanks(line.substr(kKey.size()));
        double dotsPerInch = 0;
        const auto result = std::from_chars(value.data(), value.data() + value.size(), dotsPerInch);
        return result.ec == std::errc() ? fromDotsPerInch(dotsPerInch) : kSmallest;
    }
    return kSmallest;
}

} // namespace haloric
