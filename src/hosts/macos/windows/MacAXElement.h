// An Accessibility element of macOS, and attribute values as those of src/platform. Accessibility queue.
#pragma once

#include "hosts/macos/base/CFOwned.h"
#include "platform/Accessibility.h"

#import <ApplicationServices/ApplicationServices.h>

#include <utility>

namespace haloric {

class MacAXElement final : public AXElementObject {
public:
    // Null for null.
    static AXElement make(CFOwned<AXUIElementRef> element)
    {
        return element ? std::make_shared<const MacAXElement>(std::move(element)) : nullptr;
    }

    explicit MacAXElement(CFOwned<AXUIElementRef> element) : m_element(std::move(element)) {}

    // `element` was made by this host.
    static AXUIElementRef reference(const AXElement& element)
    {
        return static_cast<const MacAXElement&>(*element).m_element.get();
    }

private:
    CFOwned<AXUIElementRef> m_element;
};

// By the value's type: elements, booleans, texts, points and sizes; AXOtherValue for every other, and std::monostate
// for null.
AXValue axValueFrom(CFOwned<CFTypeRef> value);

} // namespace haloric
