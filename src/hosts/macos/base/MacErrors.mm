#include "hosts/macos/base/MacErrors.h"

#include "hosts/macos/base/MacConversions.h"

namespace haloric {

PlatformError platformErrorFrom(NSError* error)
{
    return {
        .domain = stringFrom(error.domain),
        .code = error.code,
        .localizedDescription = stringFrom(error.localizedDescription),
        .localizedRecoverySuggestion = stringFrom(error.localizedRecoverySuggestion),
    };
}

NSError* nsErrorFrom(const PlatformError& error)
{
    NSMutableDictionary<NSErrorUserInfoKey, id>* words = [NSMutableDictionary dictionary];
    words[NSLocalizedDescriptionKey] = nsStringFrom(error.localizedDescription);
    if (!error.localizedRecoverySuggestion.empty())
        words[NSLocalizedRecoverySuggestionErrorKey] = nsStringFrom(error.localizedRecoverySuggestion);
    return [NSError errorWithDomain:nsStringFrom(error.domain) code:error.code userInfo:words];
}

} // namespace haloric
