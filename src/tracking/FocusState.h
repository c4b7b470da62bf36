// What the tracker publishes: the focused window and where it is.
#pragma once

#include "foundation/Geometry.h"
#include "foundation/Ids.h"

#include <optional>

namespace haloric {

struct FocusState {
    // The height of the window's title bar in points; none: no title bar; unknown: could not be measured.
    class TitleBar {
    public:
        enum class Kind { height, none, unknown };

        static constexpr TitleBar height(double points) { return TitleBar(Kind::height, points); }
        static constexpr TitleBar none() { return TitleBar(Kind::none, 0); }
        static constexpr TitleBar unknown() { return TitleBar(Kind::unknown, 0); }

        constexpr Kind kind() const { return m_kind; }
        constexpr double points() const { return m_points; } // meaningful for Kind::height

        friend constexpr bool operator==(const TitleBar&, const TitleBar&) = default;

    private:
        constexpr TitleBar(Kind kind, double points) : m_kind(kind), m_points(points) {}
        Kind m_kind;
        double m_points;
    };

    std::optional<Rect> frame; // screen space; absent when nothing is to be highlighted
    ProcessID pid = ProcessID::none;
    WindowIdentity windowID = WindowIdentity::none;
    TitleBar titleBar = TitleBar::unknown();

    static FocusState blank() { return {}; }
    static FocusState cleared(ProcessID pid) { return {std::nullopt, pid}; }

    friend bool operator==(const FocusState&, const FocusState&) = default;
};

} // namespace haloric
