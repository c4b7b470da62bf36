// Finds the focused window of a process, its identity, its title-bar height, and its bounds if it has no window number.
// Accessibility queue only: each read may block for the messaging timeout.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"
#include "platform/Accessibility.h"
#include "tracking/FocusState.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <variant>

namespace haloric {

class AXFocusWorker {
public:
    static constexpr float kTimeoutSeconds = 0.25F; // of every element that the worker talks to

    struct Snapshot {
        WindowNumber windowID = WindowNumber::none; // none if Accessibility has none
        WindowIdentity identity = WindowIdentity::none;
        std::optional<Rect> axBounds; // global space (y downward); only without a window number
        FocusState::TitleBar titleBar = FocusState::TitleBar::unknown();
        friend bool operator==(const Snapshot&, const Snapshot&) = default;
    };
    struct NoWindow { // no usable focused window
        friend bool operator==(NoWindow, NoWindow) = default;
    };
    struct Unavailable { // the application did not answer in time
        friend bool operator==(Unavailable, Unavailable) = default;
    };
    using QueryResult = std::variant<Snapshot, NoWindow, Unavailable>;

    explicit AXFocusWorker(Accessibility& accessibility) : m_accessibility(accessibility) {}

    // The title bar is measured once per window and revision; the caller increments the revision when a window was
    // resized.
    QueryResult query(ProcessID pid, std::uint64_t titleBarRevision);

    // From the close button, which is assumed to be centred in the title bar.
    FocusState::TitleBar measureTitleBar(const AXElement& window);

    // The application element if it belongs to `pid`, else null.
    AXElement applicationElement(ProcessID pid) const { return pid == m_pid ? m_app : nullptr; }

    void reset();

private:
    struct MeasuredTitleBar {
        WindowIdentity id;
        std::uint64_t revision;
        FocusState::TitleBar value;
    };
    // Result of a step: an element, or the reason for its absence.
    using WindowResult = std::variant<AXElement, NoWindow, Unavailable>;

    bool attach(ProcessID pid);
    WindowResult focusedWindow();
    std::optional<QueryResult> reasonToIgnore(const AXElement& window);
    Snapshot identify(const AXElement& window);
    FocusState::TitleBar titleBar(const AXElement& window, WindowIdentity identity, std::uint64_t revision);

    // The attribute's value when the read succeeds and gives a T of finite numbers.
    template <class T>
    std::optional<T> axValue(const AXElement& element, std::string_view name);

    Accessibility& m_accessibility;
    AXElement m_app;
    ProcessID m_pid = ProcessID::none;
    std::optional<MeasuredTitleBar> m_measuredTitleBar;
};

} // namespace haloric
