// An Accessibility element of some application.
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

    // Of an element that this host made.
    static AXUIElementRef reference(const AXElement& element)
    {
        return static_cast<const MacAXElement&>(*element).m_element.get();
    }

private:
    CFOwned<AXUIElementRef> m_element;
};

} // namespace haloric
