#include "hosts/macos/windows/MacAXObserver.h"

#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/base/OwnPool.h"
#include "hosts/macos/windows/MacAXElement.h"

#include <utility>

namespace haloric {

std::unique_ptr<MacAXObserver> MacAXObserver::make(ProcessID pid, Accessibility::ObserverCallback callback)
{
    std::unique_ptr<MacAXObserver> made(new MacAXObserver(std::move(callback)));
    const ::AXError error = AXObserverCreate(static_cast<pid_t>(pid), &deliver, made->m_observer.receiver());
    return error == kAXErrorSuccess && made->m_observer ? std::move(made) : nullptr;
}

AXError MacAXObserver::addNotification(const AXElement& element, std::string_view name)
{
    const AXUIElementRef reference = MacAXElement::reference(element);
    return AXError{AXObserverAddNotification(m_observer.get(), reference, cfStringFrom(name).get(), this)};
}

void MacAXObserver::addToMainRunLoop()
{
    CFRunLoopAddSource(CFRunLoopGetMain(), AXObserverGetRunLoopSource(m_observer.get()), kCFRunLoopCommonModes);
}

void MacAXObserver::removeFromMainRunLoop()
{
    CFRunLoopRemoveSource(CFRunLoopGetMain(), AXObserverGetRunLoopSource(m_observer.get()), kCFRunLoopCommonModes);
}

void MacAXObserver::deliver(AXObserverRef observer, AXUIElementRef, CFStringRef notification, void* context)
{
    // Calls a copy and touches nothing afterwards: the callback may have this object released on its queue meanwhile.
    // The system's observer stays until its own function has returned.
    const auto kept = CFOwned<AXObserverRef>::retaining(observer);
    const auto callback = static_cast<const MacAXObserver*>(context)->m_callback;
    withOwnPool([&] { callback(stringFrom((__bridge NSString*)notification)); });
}

} // namespace haloric
