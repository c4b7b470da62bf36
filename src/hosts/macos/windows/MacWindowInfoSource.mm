#include "hosts/macos/windows/MacWindowInfoSource.h"

#include "hosts/macos/base/CFOwned.h"
#include "hosts/macos/base/MacConversions.h"

#import <CoreGraphics/CoreGraphics.h>

namespace haloric {
namespace {

// The numbers of platform/WindowInfoSource.h are those of Core Graphics.
static_assert(kCGWindowListOptionOnScreenOnly == static_cast<std::uint32_t>(WindowListOptions::onScreenOnly));
static_assert(kCGWindowListOptionIncludingWindow == static_cast<std::uint32_t>(WindowListOptions::includingWindow));
static_assert(kCGWindowListExcludeDesktopElements ==
              static_cast<std::uint32_t>(WindowListOptions::excludeDesktopElements));

WindowInfoValue numberFrom(CFNumberRef number)
{
    if (CFNumberIsFloatType(number)) {
        double value = 0;
        CFNumberGetValue(number, kCFNumberDoubleType, &value);
        return value;
    }
    std::int64_t value = 0;
    CFNumberGetValue(number, kCFNumberSInt64Type, &value);
    return value;
}

WindowInfoValue valueFrom(CFTypeRef value)
{
    if (!value)
        return std::monostate();
    if (CFGetTypeID(value) == CFNumberGetTypeID())
        return numberFrom(static_cast<CFNumberRef>(value));
    if (CFGetTypeID(value) == CFDictionaryGetTypeID()) {
        CGRect rect;
        if (CGRectMakeWithDictionaryRepresentation(static_cast<CFDictionaryRef>(value), &rect))
            return rectFrom(rect);
    }
    return OtherWindowInfoValue();
}

WindowInfo infoFrom(CFDictionaryRef entry)
{
    const auto value = [entry](CFStringRef key) { return valueFrom(CFDictionaryGetValue(entry, key)); };
    return {
        .layer = value(kCGWindowLayer),
        .ownerPID = value(kCGWindowOwnerPID),
        .alpha = value(kCGWindowAlpha),
        .number = value(kCGWindowNumber),
        .bounds = value(kCGWindowBounds),
    };
}

} // namespace

std::optional<std::vector<WindowInfo>> MacWindowInfoSource::copyWindowInfo(WindowListOptions options,
                                                                           WindowNumber relativeTo)
{
    const CFOwned<CFArrayRef> list(
        CGWindowListCopyWindowInfo(static_cast<CGWindowListOption>(options), static_cast<CGWindowID>(relativeTo)));
    if (!list)
        return std::nullopt;
    const CFIndex count = CFArrayGetCount(list.get());
    std::vector<WindowInfo> windows;
    windows.reserve(static_cast<std::size_t>(count));
    for (CFIndex i = 0; i < count; ++i) {
        const CFTypeRef entry = CFArrayGetValueAtIndex(list.get(), i);
        if (!entry || CFGetTypeID(entry) != CFDictionaryGetTypeID())
            return std::nullopt;
        windows.push_back(infoFrom(static_cast<CFDictionaryRef>(entry)));
    }
    return windows;
}

} // namespace haloric
