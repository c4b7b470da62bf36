// A canvas that draws nothing and remembers every call, for tests of what views draw. Main thread.
#pragma once

#include "drawing/Canvas.h"

#include <optional>
#include <variant>
#include <vector>

namespace haloric {

class RecordingCanvas final : public Canvas {
public:
    struct Save {
        friend bool operator==(const Save&, const Save&) = default;
    };
    struct Restore {
        friend bool operator==(const Restore&, const Restore&) = default;
    };
    struct Clip {
        Path path;
        FillRule rule = FillRule::nonZero;
        friend bool operator==(const Clip&, const Clip&) = default;
    };
    struct SetShadow {
        Shadow shadow;
        friend bool operator==(const SetShadow&, const SetShadow&) = default;
    };
    struct SetBlendMode {
        BlendMode mode = BlendMode::normal;
        friend bool operator==(const SetBlendMode&, const SetBlendMode&) = default;
    };
    struct Fill {
        Path path;
        Color color;
        FillRule rule = FillRule::nonZero;
        friend bool operator==(const Fill&, const Fill&) = default;
    };
    struct FillRect {
        Rect rect;
        Color color;
        CompositingOperation operation = CompositingOperation::sourceOver;
        friend bool operator==(const FillRect&, const FillRect&) = default;
    };
    struct Stroke {
        Path path;
        Color color;
        double lineWidth = 0;
        friend bool operator==(const Stroke&, const Stroke&) = default;
    };
    struct StrokeLines {
        std::vector<Polyline> lines;
        Color color;
        LineStyle style;
        friend bool operator==(const StrokeLines&, const StrokeLines&) = default;
    };
    using Call = std::variant<Save, Restore, Clip, SetShadow, SetBlendMode, Fill, FillRect, Stroke, StrokeLines>;

    // The state that save() keeps.
    struct State {
        std::vector<Clip> clips; // outermost first; drawing shows inside all of them
        std::optional<Shadow> shadow;
        BlendMode blendMode = BlendMode::normal;
        friend bool operator==(const State&, const State&) = default;
    };

    // A call that paints, with the state under which it was made.
    struct Drawing {
        std::variant<Fill, FillRect, Stroke, StrokeLines> call;
        State state;
        friend bool operator==(const Drawing&, const Drawing&) = default;
    };

    // Every call in order, including saves and restores, and a restore without a save, which changes nothing.
    const std::vector<Call>& calls() const { return m_calls; }

    // Only the painting calls, in order.
    const std::vector<Drawing>& drawings() const { return m_drawings; }

    // The current state, and the number of unmatched save() calls.
    const State& state() const { return m_state; }
    std::size_t openSaves() const { return m_saved.size(); }

    // Sets what compositingOperation() returns; initially sourceOver.
    void setCompositingOperation(CompositingOperation operation) { m_operation = operation; }

    void save() override;
    void restore() override;
    void clip(const Path& path, FillRule rule) override;
    void setShadow(const Shadow& shadow) override;
    void setBlendMode(BlendMode mode) override;
    CompositingOperation compositingOperation() const override { return m_operation; }
    void fill(const Path& path, const Color& color, FillRule rule) override;
    void fillRect(const Rect& rect, const Color& color, CompositingOperation operation) override;
    void stroke(const Path& path, const Color& color, double lineWidth) override;
    void strokeLines(std::span<const Polyline> lines, const Color& color, const LineStyle& style) override;

private:
    std::vector<Call> m_calls;
    std::vector<Drawing> m_drawings;
    State m_state;
    std::vector<State> m_saved;
    CompositingOperation m_operation = CompositingOperation::sourceOver;
};

} // namespace haloric
