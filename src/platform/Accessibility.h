// The Accessibility interface: trust, elements with attributes, and observers.
//
// Calls that talk to an application may block for as long as the element's messaging timeout; only the
// Accessibility queue makes them. Each method states its thread.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace haloric {

// The error numbers of macOS that Haloric tests for.
enum class AXError : std::int32_t {
    success = 0,
    failure = -25200,
    invalidElement = -25202,
    cannotComplete = -25204, // the application did not answer within the timeout
    attributeUnsupported = -25205,
    notificationUnsupported = -25207,
    apiDisabled = -25211,
    noValue = -25212,
};

// A reference to a user-interface element of some application; shared, released on any thread. Each host derives
// its own. Null stands for "no element".
class AXElementObject {
public:
    virtual ~AXElementObject() = default;
};
using AXElement = std::shared_ptr<const AXElementObject>;

// A value of a type that Haloric does not use.
struct AXOtherValue {
    friend bool operator==(const AXOtherValue&, const AXOtherValue&) = default;
};

// What an attribute holds. std::monostate: the call succeeded and gave no value. Points and sizes are in the global
// space with its origin at the top left of the primary display, y downward.
using AXValue = std::variant<std::monostate, AXOtherValue, bool, std::string, Point, Size, AXElement>;

struct AXAttribute {
    AXError error = AXError::failure;
    AXValue value; // meaningful only on success
};

struct AXWindowNumber {
    AXError error = AXError::failure;
    WindowNumber number = WindowNumber::none; // meaningful only on success
};

// An observer of one application. Created, registered and released on the Accessibility queue; added to and removed
// from the main run loop on the main thread, removed before the release. Its callback may lead to both, so an
// implementation does not touch the observer after the callback has returned.
class AXObserver {
public:
    virtual ~AXObserver() = default;

    // Notifications of `element` are delivered from now on, once the observer is on the run loop.
    virtual AXError addNotification(const AXElement& element, std::string_view name) = 0;

    virtual void addToMainRunLoop() = 0;
    virtual void removeFromMainRunLoop() = 0; // nothing is delivered after this
};

class Accessibility {
public:
    // Called on the main thread with the notification's name.
    using ObserverCallback = std::function<void(std::string_view notification)>;

    virtual ~Accessibility() = default;

    // Main thread; neither blocks nor allocates.
    virtual bool isProcessTrusted() const = 0;

    // Whether the user can grant trust. Without that, a missing trust means that something else is missing.
    virtual bool canBeGranted() const { return true; }

    // As isProcessTrusted; with `prompt` the system also shows its request if trust is missing. Main thread.
    virtual bool isProcessTrustedWithPrompt(bool prompt) = 0;

    // The following: Accessibility queue.
    virtual AXElement createApplicationElement(ProcessID pid) = 0; // null: no such element
    virtual void setMessagingTimeout(const AXElement& element, float seconds) = 0;
    virtual AXAttribute copyAttribute(const AXElement& element, std::string_view name) = 0;
    virtual AXWindowNumber windowNumber(const AXElement& element) = 0;
    virtual std::uint64_t hash(const AXElement& element) = 0; // equal for equal elements, stable while one lives

    // Null when the observer cannot be made.
    virtual std::unique_ptr<AXObserver> createObserver(ProcessID pid, ObserverCallback callback) = 0;
};

} // namespace haloric
