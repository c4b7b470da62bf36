// An Accessibility observer of one application, with its source in the main run loop's common modes.
#pragma once

#include "hosts/macos/base/CFOwned.h"
#include "platform/Accessibility.h"

#import <ApplicationServices/ApplicationServices.h>

namespace haloric {

class MacAXObserver final : public AXObserver {
public:
    // Null when macOS refuses.
    static std::unique_ptr<MacAXObserver> make(ProcessID pid, Accessibility::ObserverCallback callback);

    AXError addNotification(const AXElement& element, std::string_view name) override;
    void addToMainRunLoop() override;
    void removeFromMainRunLoop() override;

private:
    explicit MacAXObserver(Accessibility::ObserverCallback callback) : m_callback(std::move(callback)) {}

    static void deliver(AXObserverRef observer, AXUIElementRef element, CFStringRef notification, void* context);

    const Accessibility::ObserverCallback m_callback;
    CFOwned<AXObserverRef> m_observer;
};

} // namespace haloric
