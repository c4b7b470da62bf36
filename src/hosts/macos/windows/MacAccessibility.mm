#include "hosts/macos/windows/MacAccessibility.h"

#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/windows/MacAXElement.h"
#include "hosts/macos/windows/MacAXObserver.h"

#include <dlfcn.h>
#include <utility>

namespace haloric {

// The numbers of platform/Accessibility.h are those of macOS.
static_assert(kAXErrorCannotComplete == static_cast<std::int32_t>(AXError::cannotComplete));
static_assert(kAXErrorAttributeUnsupported == static_cast<std::int32_t>(AXError::attributeUnsupported));
static_assert(kAXErrorNoValue == static_cast<std::int32_t>(AXError::noValue));

MacAccessibility::MacAccessibility()
    : m_getWindow(reinterpret_cast<GetWindow>(dlsym(RTLD_DEFAULT, "_AXUIElementGetWindow")))
{
}

bool MacAccessibility::isProcessTrusted() const { return AXIsProcessTrusted(); }

bool MacAccessibility::isProcessTrustedWithPrompt(bool prompt)
{
    NSDictionary* options = @{(__bridge NSString*)kAXTrustedCheckOptionPrompt : @(prompt)};
    return AXIsProcessTrustedWithOptions((__bridge CFDictionaryRef)options);
}

AXElement MacAccessibility::createApplicationElement(ProcessID pid)
{
    return MacAXElement::make(CFOwned<AXUIElementRef>(AXUIElementCreateApplication(static_cast<pid_t>(pid))));
}

void MacAccessibility::setMessagingTimeout(const AXElement& element, float seconds)
{
    AXUIElementSetMessagingTimeout(MacAXElement::reference(element), seconds);
}

AXAttribute MacAccessibility::copyAttribute(const AXElement& element, std::string_view name)
{
    CFOwned<CFTypeRef> value;
    const AXUIElementRef reference = MacAXElement::reference(element);
    const ::AXError error = AXUIElementCopyAttributeValue(reference, cfStringFrom(name).get(), value.receiver());
    if (error != kAXErrorSuccess)
        return {AXError{error}, {}};
    return {AXError::success, axValueFrom(std::move(value))};
}

AXWindowNumber MacAccessibility::windowNumber(const AXElement& element)
{
    if (!m_getWindow)
        return {};
    CGWindowID number = kCGNullWindowID;
    const ::AXError error = m_getWindow(MacAXElement::reference(element), &number);
    return {AXError{error}, WindowNumber{number}};
}

std::uint64_t MacAccessibility::hash(const AXElement& element) { return CFHash(MacAXElement::reference(element)); }

std::unique_ptr<AXObserver> MacAccessibility::createObserver(ProcessID pid, ObserverCallback callback)
{
    return MacAXObserver::make(pid, std::move(callback));
}

} // namespace haloric
