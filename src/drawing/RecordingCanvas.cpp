#include "drawing/RecordingCanvas.h"

namespace haloric {

void RecordingCanvas::save()
{
    m_calls.push_back(Save{});
    m_saved.push_back(m_state);
}

void RecordingCanvas::restore()
{
    m_calls.push_back(Restore{});
    if (m_saved.empty())
        return;
    m_state = std::move(m_saved.back());
    m_saved.pop_back();
}

void RecordingCanvas::clip(const Path& path, FillRule rule)
{
    m_calls.push_back(Clip{path, rule});
    m_state.clips.push_back(Clip{path, rule});
}

void RecordingCanvas::setShadow(const Shadow& shadow)
{
    m_calls.push_back(SetShadow{shadow});
    m_state.shadow = shadow;
}

void RecordingCanvas::setBlendMode(BlendMode mode)
{
    m_calls.push_back(SetBlendMode{mode});
    m_state.blendMode = mode;
}

void RecordingCanvas::fill(const Path& path, const Color& color, FillRule rule)
{
    m_calls.push_back(Fill{path, color, rule});
    m_drawings.push_back({Fill{path, color, rule}, m_state});
}

void RecordingCanvas::fillRect(const Rect& rect, const Color& color, CompositingOperation operation)
{
    m_calls.push_back(FillRect{rect, color, operation});
    m_drawings.push_back({FillRect{rect, color, operation}, m_state});
}

void RecordingCanvas::stroke(const Path& path, const Color& color, double lineWidth)
{
    m_calls.push_back(Stroke{path, color, lineWidth});
    m_drawings.push_back({Stroke{path, color, lineWidth}, m_state});
}

void RecordingCanvas::strokeLines(std::span<const Polyline> lines, const Color& color, const LineStyle& style)
{
    const StrokeLines call{{lines.begin(), lines.end()}, color, style};
    m_calls.push_back(call);
    m_drawings.push_back({call, m_state});
}

} // namespace haloric
