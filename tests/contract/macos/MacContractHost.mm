#include "contract/macos/MacContractHost.h"

#include "hosts/macos/base/CFOwned.h"
#include "hosts/macos/base/MacConversions.h"

#include <algorithm>
#include <fstream>
#include <mutex>
#include <sstream>
#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

namespace haloric {
namespace {

constexpr Seconds kPatience{10};
constexpr Seconds kTurn{0.01};

std::string frameCommand(const Rect& frame)
{
    std::ostringstream command;
    command << "frame " << frame.x << ' ' << frame.y << ' ' << frame.width << ' ' << frame.height;
    return command.str();
}

void postButton(CGEventType type, Point place)
{
    const CFOwned<CGEventRef> event(CGEventCreateMouseEvent(nullptr, type, cgPointFrom(place), kCGMouseButtonLeft));
    CGEventPost(kCGHIDEventTap, event.get());
}

} // namespace

// The log goes to standard error, which goes to a file meanwhile.
MacContractHost::MacContractHost()
    : m_logPath(stringFrom([NSTemporaryDirectory() stringByAppendingPathComponent:NSUUID.UUID.UUIDString])),
      m_standardError(::dup(STDERR_FILENO))
{
    const int file = ::open(m_logPath.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    if (file < 0)
        throw std::runtime_error("cannot make a log file");
    ::dup2(file, STDERR_FILENO);
    ::close(file);
    m_application.setActivationPolicy(ActivationPolicy::accessory); // else its windows would not be shown
    static std::once_flag launched;                                 // one application object serves all tests
    std::call_once(launched, [] { [NSApp finishLaunching]; });
}

MacContractHost::~MacContractHost()
{
    ::dup2(m_standardError, STDERR_FILENO);
    ::close(m_standardError);
    ::unlink(m_logPath.c_str());
    NSUserDefaults* const defaults = NSUserDefaults.standardUserDefaults;
    for (NSString* key in defaults.dictionaryRepresentation.allKeys) {
        if ([key hasPrefix:@"contract."])
            [defaults removeObjectForKey:key];
    }
}

ContractWindow MacContractHost::openWindow(const Rect& frame)
{
    auto process = std::make_unique<ContractWindowProcess>();
    const ContractWindow window = process->window();
    m_windows[window.number] = std::move(process);
    setFrame(window, frame);
    focus(window);
    const auto isFrontmost = [&] {
        const auto frontmost = m_workspace.frontmostApplication();
        return frontmost && frontmost->pid == window.pid;
    };
    if (!waitUntil(isFrontmost)) // no failure of the adapters, but the rest of the test would mean nothing
        throw std::runtime_error("the desktop does not activate the application");
    const Rect shown = frameOf(window).value();
    m_pointer = {shown.x + shown.width / 2, shown.y + shown.height / 2};
    return window;
}

void MacContractHost::focus(const ContractWindow& window) { m_windows.at(window.number)->ask("focus"); }

void MacContractHost::move(const ContractWindow& window, Point topLeft)
{
    const Rect now = frameOf(window).value();
    setFrame(window, {topLeft.x, topLeft.y, now.width, now.height});
}

void MacContractHost::resize(const ContractWindow& window, Size size)
{
    const Rect now = frameOf(window).value();
    setFrame(window, {now.x, now.y, size.width, size.height});
}

void MacContractHost::setFrame(const ContractWindow& window, const Rect& globalFrame)
{
    m_windows.at(window.number)->ask(frameCommand(flipped(globalFrame)));
}

void MacContractHost::minimise(const ContractWindow& window) { m_windows.at(window.number)->ask("minimise"); }

void MacContractHost::close(const ContractWindow& window)
{
    m_windows.at(window.number)->ask("close");
    m_windows.erase(window.number);
}

void MacContractHost::pressButton() { postButton(kCGEventLeftMouseDown, m_pointer); }

void MacContractHost::releaseButton() { postButton(kCGEventLeftMouseUp, m_pointer); }

std::optional<Rect> MacContractHost::frameOf(const ContractWindow& window)
{
    const auto found = m_windows.find(window.number);
    return found == m_windows.end() ? std::nullopt : std::optional(flipped(found->second->ask("where")));
}

std::optional<Rect> MacContractHost::placeOf(WindowNumber window)
{
    const CFOwned<CFArrayRef> list(
        CGWindowListCopyWindowInfo(kCGWindowListOptionIncludingWindow, static_cast<CGWindowID>(window)));
    NSArray<NSDictionary*>* const records = (__bridge NSArray*)list.get();
    CGRect bounds = CGRectZero;
    const auto* dictionary = (__bridge CFDictionaryRef)records.firstObject[(__bridge NSString*)kCGWindowBounds];
    if (!dictionary || !CGRectMakeWithDictionaryRepresentation(dictionary, &bounds))
        return std::nullopt;
    return rectFrom(bounds);
}

bool MacContractHost::waitUntil(const std::function<bool()>& holds)
{
    const Seconds end = m_runLoop.systemUptime() + kPatience;
    while (!holds()) {
        if (m_runLoop.systemUptime() > end)
            return false;
        turn(kTurn);
    }
    return true;
}

void MacContractHost::turnFor(Seconds duration)
{
    const Seconds end = m_runLoop.systemUptime() + duration;
    while (m_runLoop.systemUptime() < end)
        turn(std::min(end - m_runLoop.systemUptime(), kTurn));
}

void MacContractHost::turn(Seconds atMost)
{
    @autoreleasepool {
        NSEvent* event = [NSApp nextEventMatchingMask:NSEventMaskAny
                                            untilDate:[NSDate dateWithTimeIntervalSinceNow:atMost.count()]
                                               inMode:NSDefaultRunLoopMode
                                              dequeue:YES];
        if (event)
            [NSApp sendEvent:event];
    }
}

std::optional<std::string> MacContractHost::storedData(std::string_view key)
{
    const auto application = kCFPreferencesCurrentApplication;
    NSString* const name = nsStringFrom(key);
    CFPreferencesAppSynchronize(application);
    const CFOwned<CFPropertyListRef> value(CFPreferencesCopyAppValue((__bridge CFStringRef)name, application));
    NSData* const data = (__bridge NSData*)value.get();
    return [data isKindOfClass:NSData.class]
               ? std::optional(std::string(static_cast<const char*>(data.bytes), data.length))
               : std::nullopt;
}

std::string MacContractHost::loggedText()
{
    std::ostringstream text;
    text << std::ifstream(m_logPath).rdbuf();
    return text.str();
}

std::vector<ContractHostFactory> contractHosts()
{
    return {{"MacOS", []() -> std::unique_ptr<ContractHost> { return std::make_unique<MacContractHost>(); }}};
}

} // namespace haloric
