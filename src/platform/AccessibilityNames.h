// The names that Accessibility uses on macOS: notifications, attributes and roles. Every host uses them.
#pragma once

#include <array>
#include <string_view>

namespace haloric {

namespace AXNotifications {

inline constexpr std::string_view kFocusedWindowChanged = "AXFocusedWindowChanged";
inline constexpr std::string_view kMainWindowChanged = "AXMainWindowChanged";
inline constexpr std::string_view kWindowMoved = "AXWindowMoved";
inline constexpr std::string_view kWindowResized = "AXWindowResized";
inline constexpr std::string_view kWindowMiniaturized = "AXWindowMiniaturized";
inline constexpr std::string_view kWindowDeminiaturized = "AXWindowDeminiaturized";
inline constexpr std::string_view kWindowCreated = "AXWindowCreated";
inline constexpr std::string_view kElementDestroyed = "AXUIElementDestroyed";
inline constexpr std::string_view kApplicationHidden = "AXApplicationHidden";
inline constexpr std::string_view kApplicationShown = "AXApplicationShown";
inline constexpr std::string_view kFocusedElementChanged = "AXFocusedUIElementChanged";

// Every notification that Haloric observes, in the order in which it registers for them.
inline constexpr std::array kObserved{
    kFocusedWindowChanged, kMainWindowChanged,    kWindowMoved,           kWindowResized,
    kWindowMiniaturized,   kWindowDeminiaturized, kWindowCreated,         kElementDestroyed,
    kApplicationHidden,    kApplicationShown,     kFocusedElementChanged,
};

} // namespace AXNotifications

namespace AXAttributes {

inline constexpr std::string_view kFocusedWindow = "AXFocusedWindow"; // of an application: an element
inline constexpr std::string_view kMainWindow = "AXMainWindow";       // of an application: an element
inline constexpr std::string_view kRole = "AXRole";                   // a string, see AXRoles
inline constexpr std::string_view kMinimized = "AXMinimized";         // a Boolean
inline constexpr std::string_view kPosition = "AXPosition";           // a point in global space
inline constexpr std::string_view kSize = "AXSize";
inline constexpr std::string_view kCloseButton = "AXCloseButton"; // of a window: an element

} // namespace AXAttributes

namespace AXRoles {

inline constexpr std::string_view kApplication = "AXApplication";
inline constexpr std::string_view kWindow = "AXWindow";
inline constexpr std::string_view kSheet = "AXSheet";
inline constexpr std::string_view kButton = "AXButton";
inline constexpr std::string_view kUnknown = "AXUnknown";

} // namespace AXRoles

} // namespace haloric
