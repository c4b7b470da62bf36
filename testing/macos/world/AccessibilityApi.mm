// Accessibility: elements, values and observers of the world.
#include "foundation/Balance.h"
#include "loop/MainLoop.h"
#include "loop/Sources.h"
#include "platform/Accessibility.h"
#include "world/Backing.h"
#include "world/World.h"

#import <ApplicationServices/ApplicationServices.h>

#include <chrono>
#include <set>
#include <thread>
#include <utility>

using substitute::raise;
using substitute::text;
using substitute::World;
using Lock = std::lock_guard<std::recursive_mutex>;

@interface RTElement : NSObject {
@public
    int pid;
    unsigned number;
    float timeout; // seconds; 0: the one that holds for all elements
    bool isBehind; // with a backing: of that, which may have none for the process
    haloric::AXElement behind;
    NSUInteger hashBehind;
}
@end
@implementation RTElement
- (BOOL)isEqual:(id)o
{
    if (![o isKindOfClass:RTElement.class])
        return NO;
    RTElement* other = o;
    return isBehind ? other->isBehind && other->hashBehind == hashBehind : other->pid == pid && other->number == number;
}
- (NSUInteger)hash
{
    if (isBehind)
        return hashBehind;
    return static_cast<NSUInteger>(pid) * 1000003u + number;
}
@end
@interface RTAXValue : NSObject {
@public
    AXValueType type;
    double a, b;
}
@end
@implementation RTAXValue
@end
@interface RTAXObserver : NSObject {
@public
    int pid;
    AXObserverCallback callback;
    RTSource* source;
    std::vector<std::pair<std::string, void*>> names;
    std::vector<std::pair<std::string, unsigned>> heard;
    std::unique_ptr<haloric::AXObserver> behind; // with a backing
}
- (void)deliver;
@end
static std::set<RTAXObserver * __unsafe_unretained>& observers()
{
    static auto* all = new std::set<RTAXObserver * __unsafe_unretained>;
    return *all;
}
static const substitute::Counted counted("Accessibility observers",
                                         [] { return static_cast<long>(observers().size()); });
@implementation RTAXObserver
- (void)deliver
{
    std::vector<std::pair<std::string, unsigned>> now;
    {
        const Lock guard(World::the().lock);
        now.swap(heard);
    }
    for (const auto& [name, number] : now) {
        void* context = nullptr;
        bool wanted = false;
        {
            const Lock guard(World::the().lock);
            for (const auto& one : names)
                if (one.first == name) {
                    context = one.second;
                    wanted = true;
                }
        }
        if (!wanted)
            continue;
        RTElement* element = [[RTElement alloc] init];
        element->pid = pid;
        element->number = number;
        callback((__bridge AXObserverRef)self, (__bridge AXUIElementRef)element, (__bridge CFStringRef)text(name),
                 context);
    }
}
- (void)dealloc
{
    const Lock guard(World::the().lock);
    observers().erase(self);
    if (!source)
        return; // made for a process that cannot be observed
    source->perform = nullptr;
    source->placed = nullptr;
    source->valid = false;
}
@end
void substitute::tellAccessibility(int pid, const char* name, unsigned number)
{
    // Not retained: another thread may be about to end it, and waits for the lock to do so.
    for (RTAXObserver* __unsafe_unretained one : observers())
        if (one->pid == pid) {
            one->heard.emplace_back(name, number);
            [one->source signal];
        }
}
static RTElement* element(int pid, unsigned number)
{
    RTElement* made = [[RTElement alloc] init];
    made->pid = pid;
    made->number = number;
    return made;
}
static id axPair(AXValueType type, double a, double b)
{
    RTAXValue* made = [[RTAXValue alloc] init];
    made->type = type;
    made->a = a;
    made->b = b;
    return made;
}
// AXError.h: kAXErrorAPIDisabled without the user's permission. AXUIElementSetMessagingTimeout: an application that
// does not answer is waited for until then, and the call returns kAXErrorCannotComplete.
static AXError reachApplication(RTElement* element)
{
    constexpr float kTimeout = 6; // of an element without its own
    World& world = World::the();
    std::unique_lock guard(world.lock);
    if (!world.trusted)
        return kAXErrorAPIDisabled;
    if (world.unready.contains(element->pid))
        return kAXErrorCannotComplete;
    if (!world.hanging.contains(element->pid))
        return kAXErrorSuccess;
    if (substitute::isMain())
        ++world.waitsOnMain;
    guard.unlock();
    if (substitute::clock().hasThreads())
        std::this_thread::sleep_for(std::chrono::duration<float>(element->timeout > 0 ? element->timeout : kTimeout));
    return kAXErrorCannotComplete;
}

// ---- with a backing

static RTElement* elementBehind(haloric::AXElement behind)
{
    RTElement* made = [[RTElement alloc] init];
    made->isBehind = true;
    if (behind)
        made->hashBehind = substitute::backing()->adapters.accessibility.hash(behind);
    made->behind = std::move(behind);
    return made;
}
namespace {
struct ObjectFor {
    id operator()(std::monostate) const { return nil; }
    id operator()(haloric::AXOtherValue) const { return @1; }
    id operator()(bool value) const { return @(static_cast<BOOL>(value)); }
    id operator()(const std::string& value) const { return text(value); }
    id operator()(haloric::Point p) const { return axPair(static_cast<AXValueType>(kAXValueCGPointType), p.x, p.y); }
    id operator()(haloric::Size s) const
    {
        return axPair(static_cast<AXValueType>(kAXValueCGSizeType), s.width, s.height);
    }
    id operator()(const haloric::AXElement& element) const { return elementBehind(element); }
};
} // namespace
static AXError copyBehind(RTElement* element, const std::string& name, CFTypeRef* value)
{
    if (!element->behind)
        return kAXErrorInvalidUIElement;
    const auto attribute = substitute::backing()->adapters.accessibility.copyAttribute(element->behind, name);
    if (attribute.error == haloric::AXError::success)
        if (id object = std::visit(ObjectFor(), attribute.value))
            *value = CFBridgingRetain(object);
    return static_cast<AXError>(attribute.error);
}
static RTAXObserver* observerBehind(pid_t pid, AXObserverCallback callback)
{
    RTAXObserver* one = [[RTAXObserver alloc] init];
    RTAXObserver* __unsafe_unretained bare = one; // what is behind goes with it
    one->behind = substitute::backing()->adapters.accessibility.createObserver(
        haloric::ProcessID{pid}, [bare](std::string_view name) {
            RTAXObserver* __unsafe_unretained strict = bare;
            @autoreleasepool {
                strict->heard.emplace_back(name, 0);
                [strict deliver];
            }
        });
    if (!one->behind)
        return nil;
    one->pid = pid;
    one->callback = callback;
    one->source = [[RTSource alloc] init];
    haloric::AXObserver* behind = one->behind.get();
    one->source->placed = [behind](bool onLoop) {
        if (onLoop)
            behind->addToMainRunLoop();
        else
            behind->removeFromMainRunLoop();
    };
    return one;
}

extern "C" {
const CFStringRef kAXTrustedCheckOptionPrompt = CFSTR("AXTrustedCheckOptionPrompt");
Boolean AXIsProcessTrusted()
{
    ++substitute::questions()["AXIsProcessTrusted"];
    const substitute::Backing* backing = substitute::backing();
    return backing ? backing->adapters.accessibility.isProcessTrusted() : World::the().trusted;
}
Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options)
{
    const substitute::Backing* backing = substitute::backing();
    NSNumber* prompt = ((__bridge NSDictionary*)options)[(__bridge NSString*)kAXTrustedCheckOptionPrompt];
    return backing ? backing->adapters.accessibility.isProcessTrustedWithPrompt(prompt.boolValue)
                   : World::the().trusted;
}
CFTypeID AXUIElementGetTypeID() { return (CFTypeID)RTElement.class; }
CFTypeID AXValueGetTypeID() { return (CFTypeID)RTAXValue.class; }
AXValueType AXValueGetType(AXValueRef value) { return ((__bridge RTAXValue*)(void*)value)->type; }
Boolean AXValueGetValue(AXValueRef value, AXValueType type, void* to)
{
    RTAXValue* one = (__bridge RTAXValue*)(void*)value;
    if (one->type != type)
        return false;
    static_cast<double*>(to)[0] = one->a;
    static_cast<double*>(to)[1] = one->b;
    return true;
}
AXUIElementRef AXUIElementCreateApplication(pid_t pid)
{
    if (const substitute::Backing* backing = substitute::backing())
        return (AXUIElementRef)CFBridgingRetain(
            elementBehind(backing->adapters.accessibility.createApplicationElement(haloric::ProcessID{pid})));
    return (AXUIElementRef)CFBridgingRetain(element(pid, 0));
}
AXError AXUIElementSetMessagingTimeout(AXUIElementRef e, float seconds)
{
    if (!e)
        raise("AXUIElementSetMessagingTimeout: null");
    RTElement* one = (__bridge RTElement*)(void*)e;
    one->timeout = seconds;
    if (one->behind)
        substitute::backing()->adapters.accessibility.setMessagingTimeout(one->behind, seconds);
    return kAXErrorSuccess;
}
AXError AXUIElementCopyAttributeValue(AXUIElementRef reference, CFStringRef attribute, CFTypeRef* value)
{
    RTElement* one = (__bridge RTElement*)(void*)reference;
    const std::string name = [(__bridge NSString*)attribute _utf8];
    if (one->isBehind)
        return copyBehind(one, name, value);
    if (const AXError error = reachApplication(one); error != kAXErrorSuccess)
        return error;
    const Lock guard(World::the().lock);
    World& world = World::the();
    if (!world.applications.contains(one->pid))
        return kAXErrorInvalidUIElement;
    id found = nil;
    if (one->number == 0) {
        if (name != "AXFocusedWindow" && name != "AXMainWindow")
            return kAXErrorAttributeUnsupported;
        const auto* window = world.firstOf(one->pid);
        if (!window)
            return kAXErrorNoValue;
        found = element(one->pid, window->number);
    } else {
        const auto* window = world.find(one->number);
        if (!window)
            return kAXErrorInvalidUIElement;
        if (name == "AXRole")
            found = @"AXWindow";
        else if (name == "AXMinimized")
            found = @(static_cast<BOOL>(window->minimised));
        else if (name == "AXPosition")
            found =
                axPair(static_cast<AXValueType>(kAXValueCGPointType), window->frame.origin.x, window->frame.origin.y);
        else if (name == "AXSize")
            found = axPair(static_cast<AXValueType>(kAXValueCGSizeType), window->frame.size.width,
                           window->frame.size.height);
        else
            return kAXErrorAttributeUnsupported;
    }
    *value = CFBridgingRetain(found);
    return kAXErrorSuccess;
}
__attribute__((visibility("default"))) AXError _AXUIElementGetWindow(AXUIElementRef reference, CGWindowID* number)
{
    RTElement* one = (__bridge RTElement*)(void*)reference;
    if (one->isBehind) {
        if (!one->behind)
            return kAXErrorInvalidUIElement;
        const auto found = substitute::backing()->adapters.accessibility.windowNumber(one->behind);
        if (found.error == haloric::AXError::success)
            *number = static_cast<CGWindowID>(found.number);
        return static_cast<AXError>(found.error);
    }
    const Lock guard(World::the().lock);
    if (!one->number || !World::the().find(one->number))
        return kAXErrorIllegalArgument;
    *number = one->number;
    return kAXErrorSuccess;
}
AXError AXObserverCreate(pid_t pid, AXObserverCallback callback, AXObserverRef* made)
{
    if (substitute::backing()) {
        RTAXObserver* one = observerBehind(pid, callback);
        if (one)
            *made = (AXObserverRef)CFBridgingRetain(one);
        return one ? kAXErrorSuccess : kAXErrorFailure;
    }
    const Lock guard(World::the().lock);
    if (!World::the().applications.contains(pid))
        return kAXErrorFailure;
    RTAXObserver* one = [[RTAXObserver alloc] init];
    one->pid = pid;
    one->callback = callback;
    one->source = [[RTSource alloc] init];
    RTAXObserver* __unsafe_unretained bare = one;
    one->source->perform = [bare] {
        RTAXObserver* __unsafe_unretained strict = bare;
        [strict deliver];
    };
    observers().insert(one);
    *made = (AXObserverRef)CFBridgingRetain(one);
    return kAXErrorSuccess;
}
AXError AXObserverAddNotification(AXObserverRef observer, AXUIElementRef reference, CFStringRef name, void* context)
{
    RTAXObserver* one = (__bridge RTAXObserver*)(void*)observer;
    const std::string word = [(__bridge NSString*)name _utf8];
    if (one->behind) {
        RTElement* element = (__bridge RTElement*)(void*)reference;
        if (!element->behind)
            return kAXErrorInvalidUIElement;
        const auto error = static_cast<AXError>(one->behind->addNotification(element->behind, word));
        if (error != kAXErrorSuccess)
            return error;
    } else if (const AXError error = reachApplication((__bridge RTElement*)(void*)reference); error != kAXErrorSuccess)
        return error;
    const Lock guard(World::the().lock);
    one->names.emplace_back(word, context);
    return kAXErrorSuccess;
}
CFRunLoopSourceRef AXObserverGetRunLoopSource(AXObserverRef observer)
{
    return (__bridge CFRunLoopSourceRef)((__bridge RTAXObserver*)(void*)observer)->source;
}
}
