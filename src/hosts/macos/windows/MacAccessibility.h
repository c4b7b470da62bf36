// Other programs' windows through the Accessibility functions (AXUIElement), and one private function that returns an
// element's window number. It is looked up when the program starts; without it no window has a number.
#pragma once

#include "platform/Accessibility.h"

#import <ApplicationServices/ApplicationServices.h>

namespace haloric {

class MacAccessibility final : public Accessibility {
public:
    MacAccessibility();

    bool isProcessTrusted() const override;
    bool isProcessTrustedWithPrompt(bool prompt) override;
    AXElement createApplicationElement(ProcessID pid) override;
    void setMessagingTimeout(const AXElement& element, float seconds) override;
    AXAttribute copyAttribute(const AXElement& element, std::string_view name) override;
    AXWindowNumber windowNumber(const AXElement& element) override;
    std::uint64_t hash(const AXElement& element) override;
    std::unique_ptr<AXObserver> createObserver(ProcessID pid, ObserverCallback callback) override;

private:
    using GetWindow = ::AXError (*)(AXUIElementRef element, CGWindowID* number);

    const GetWindow m_getWindow;
};

} // namespace haloric
