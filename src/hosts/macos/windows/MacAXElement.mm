#include "hosts/macos/windows/MacAXElement.h"

#include "hosts/macos/base/MacConversions.h"

namespace haloric {
namespace {

// Declared as plain numbers, but the functions take an AXValueType.
constexpr auto kPoint = static_cast<AXValueType>(kAXValueCGPointType);
constexpr auto kSize = static_cast<AXValueType>(kAXValueCGSizeType);

AXValue geometryFrom(AXValueRef value)
{
    const AXValueType type = AXValueGetType(value);
    if (CGPoint point; type == kPoint && AXValueGetValue(value, kPoint, &point))
        return Point{point.x, point.y};
    if (CGSize size; type == kSize && AXValueGetValue(value, kSize, &size))
        return Size{size.width, size.height};
    return AXOtherValue();
}

} // namespace

AXValue axValueFrom(CFOwned<CFTypeRef> value)
{
    if (!value)
        return std::monostate();
    const CFTypeID type = CFGetTypeID(value.get());
    if (type == AXUIElementGetTypeID())
        return MacAXElement::make(CFOwned<AXUIElementRef>::retaining(static_cast<AXUIElementRef>(value.get())));
    if (type == CFBooleanGetTypeID())
        return static_cast<bool>(CFBooleanGetValue(static_cast<CFBooleanRef>(value.get())));
    if (type == CFStringGetTypeID())
        return stringFrom((__bridge NSString*)value.get());
    if (type == AXValueGetTypeID())
        return geometryFrom(static_cast<AXValueRef>(value.get()));
    return AXOtherValue();
}

} // namespace haloric
