#include "hosts/macos/MacAXValues.h"

#include "hosts/macos/MacAXElement.h"
#include "hosts/macos/MacConversions.h"

namespace haloric {
namespace {

AXValue geometryFrom(AXValueRef value)
{
    switch (AXValueGetType(value)) {
    case kAXValueCGPointType:
        if (CGPoint point; AXValueGetValue(value, kAXValueCGPointType, &point))
            return Point{point.x, point.y};
        return AXOtherValue();
    case kAXValueCGSizeType:
        if (CGSize size; AXValueGetValue(value, kAXValueCGSizeType, &size))
            return Size{size.width, size.height};
        return AXOtherValue();
    default:
        return AXOtherValue();
    }
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
