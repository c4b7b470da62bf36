#include "hosts/macos/base/MacConversions.h"

#include <algorithm>
#include <utility>

namespace haloric {

Rect rectFrom(CGRect rect) { return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height}; }

CGRect cgRectFrom(const Rect& rect) { return CGRectMake(rect.x, rect.y, rect.width, rect.height); }

CGPoint cgPointFrom(Point point) { return CGPointMake(point.x, point.y); }

CFOwned<CFStringRef> cfStringFrom(std::string_view text)
{
    const auto* bytes = reinterpret_cast<const UInt8*>(text.data());
    const auto length = static_cast<CFIndex>(text.size());
    CFOwned<CFStringRef> string(
        CFStringCreateWithBytes(kCFAllocatorDefault, bytes, length, kCFStringEncodingUTF8, false));
    return string ? std::move(string) : CFOwned<CFStringRef>::retaining(CFSTR(""));
}

NSString* nsStringFrom(std::string_view text) { return CFBridgingRelease(cfStringFrom(text).take()); }

std::string stringFrom(NSString* text)
{
    const char* bytes = text.UTF8String;
    return bytes ? std::string(bytes) : std::string();
}

NSColor* nsColorFrom(const Color& color)
{
    return [NSColor colorWithSRGBRed:color.red green:color.green blue:color.blue alpha:color.alpha];
}

CFOwned<CGColorRef> cgColorFrom(const Color& color)
{
    __attribute__((objc_precise_lifetime)) NSColor* owner = nsColorFrom(color); // as long as what it lends
    return CFOwned<CGColorRef>::retaining(owner.CGColor);
}

Color colorFrom(NSColor* color)
{
    NSColor* converted = [color colorUsingColorSpace:NSColorSpace.sRGBColorSpace];
    NSColor* source = converted ? converted : color;
    return {source.redComponent, source.greenComponent, source.blueComponent, source.alphaComponent};
}

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

dispatch_time_t dispatchTimeAfter(Seconds delay)
{
    const double nanoseconds = std::max(delay.count(), 0.0) * static_cast<double>(NSEC_PER_SEC);
    return dispatch_time(DISPATCH_TIME_NOW, static_cast<std::int64_t>(nanoseconds));
}

} // namespace haloric
