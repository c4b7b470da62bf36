#include "hosts/macos/base/MacBundle.h"

#include "hosts/macos/base/MacConversions.h"

namespace haloric {

std::string MacBundle::path() const { return stringFrom(NSBundle.mainBundle.bundlePath); }

std::optional<std::string> MacBundle::identifier() const
{
    NSString* identifier = NSBundle.mainBundle.bundleIdentifier;
    return identifier ? std::optional(stringFrom(identifier)) : std::nullopt;
}

bool MacBundle::hasInfo(std::string_view key) const
{
    return NSBundle.mainBundle.infoDictionary[nsStringFrom(key)] != nil;
}

std::optional<std::string> MacBundle::infoString(std::string_view key) const
{
    const id value = NSBundle.mainBundle.infoDictionary[nsStringFrom(key)];
    return [value isKindOfClass:NSString.class] ? std::optional(stringFrom(value)) : std::nullopt;
}

} // namespace haloric
