#include "tracking/FocusFrames.h"

#include "windowserver/SharedWindowServer.h"

#include <algorithm>

namespace haloric {

namespace {

bool isInteger(const WindowInfoValue& value, std::int64_t expected)
{
    const auto* integer = std::get_if<std::int64_t>(&value);
    return integer && *integer == expected;
}

} // namespace

std::optional<Rect> FocusFrames::frame(const Rect& globalRect) const
{
    const auto screens = m_screens.all();
    if (screens.empty())
        return std::nullopt;
    const Rect flipped = flippedVertically(globalRect, screens.front().frame.maxY());
    return isFinite(flipped) ? std::optional(flipped) : std::nullopt;
}

std::optional<Rect> FocusFrames::frame(const WindowInfo& entry) const
{
    const auto* bounds = std::get_if<Rect>(&entry.bounds);
    return bounds ? frame(*bounds) : std::nullopt;
}

std::optional<Rect> FocusFrames::windowServerFrame(WindowNumber windowID) const
{
    const auto bounds = m_windowServer.get().bounds(windowID);
    return bounds ? frame(*bounds) : std::nullopt;
}

std::optional<Rect> FocusFrames::cgFrame(WindowNumber windowID) const
{
    if (const auto fromServer = windowServerFrame(windowID))
        return fromServer;
    const auto entries = m_windowInfo.copyWindowInfo(WindowListOptions::includingWindow, windowID);
    return entries && !entries->empty() ? frame(entries->front()) : std::nullopt;
}

std::optional<Rect> FocusFrames::ordinaryWindowFrame(WindowNumber windowID, ProcessID pid) const
{
    const auto entries = m_windowInfo.copyWindowInfo(WindowListOptions::includingWindow, windowID);
    if (!entries)
        return std::nullopt;
    const auto entry = std::ranges::find_if(*entries, [&](const WindowInfo& candidate) {
        return isInteger(candidate.layer, 0) && isInteger(candidate.ownerPID, static_cast<std::int64_t>(pid));
    });
    if (entry == entries->end())
        return std::nullopt;
    const auto fromServer = windowServerFrame(windowID);
    return fromServer ? fromServer : frame(*entry);
}

} // namespace haloric
