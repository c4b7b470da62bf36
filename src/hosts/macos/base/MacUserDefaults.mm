#include "hosts/macos/base/MacUserDefaults.h"

#include "hosts/macos/base/MacConversions.h"

namespace haloric {

std::optional<std::string> MacUserDefaults::data(std::string_view key) const
{
    NSData* data = [NSUserDefaults.standardUserDefaults dataForKey:nsStringFrom(key)];
    if (!data)
        return std::nullopt;
    return std::string(static_cast<const char*>(data.bytes), data.length);
}

std::optional<PlatformError> MacUserDefaults::setData(std::string_view key, std::string_view bytes)
{
    NSData* data = [NSData dataWithBytes:bytes.data() length:bytes.size()];
    [NSUserDefaults.standardUserDefaults setObject:data forKey:nsStringFrom(key)];
    return std::nullopt;
}

} // namespace haloric
