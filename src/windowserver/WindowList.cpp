#include "windowserver/WindowList.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>
#include <utility>

namespace haloric {
namespace {

// The value as an integer type of the platform; absent when it is no integer, or too large for it.
template <class Integer>
std::optional<Integer> integerFrom(const WindowInfoValue& value)
{
    const auto* integer = std::get_if<std::int64_t>(&value);
    if (!integer || !std::in_range<Integer>(*integer))
        return std::nullopt;
    return static_cast<Integer>(*integer);
}

// The entry of one window, still in global space and without its bundle identifier; absent when it is not listed.
std::optional<WindowList::Entry> entryFrom(const WindowInfo& window, ProcessID ownProcess)
{
    if (window.layer != WindowInfoValue(std::int64_t{0}))
        return std::nullopt;
    const auto owner = integerFrom<std::int32_t>(window.ownerPID);
    if (!owner || ProcessID{*owner} == ownProcess)
        return std::nullopt;
    const auto* alpha = std::get_if<double>(&window.alpha);
    if (alpha && !(*alpha > 0.0))
        return std::nullopt;
    const auto number = integerFrom<std::uint32_t>(window.number);
    if (!number)
        return std::nullopt;
    const auto* bounds = std::get_if<Rect>(&window.bounds);
    if (!bounds || !isFinite(*bounds) || bounds->width <= 1.0 || bounds->height <= 1.0)
        return std::nullopt;
    return WindowList::Entry{*bounds, WindowNumber{*number}, ProcessID{*owner}, std::nullopt};
}

} // namespace

WindowList::WindowList(WindowInfoSource& source, const Screens& screens, const Workspace& workspace,
                       ProcessID ownProcess)
    : m_source(source),
      m_screens(screens),
      m_workspace(workspace),
      m_ownProcess(ownProcess)
{
}

std::vector<WindowList::Entry> WindowList::onScreen() const
{
    const auto windows = m_source.copyWindowInfo(
        WindowListOptions::onScreenOnly | WindowListOptions::excludeDesktopElements, WindowNumber::none);
    const auto screens = m_screens.all();
    if (!windows || screens.empty())
        return {};
    const double primaryMaxY = screens.front().frame.maxY();

    std::vector<Entry> entries;
    entries.reserve(windows->size());
    std::unordered_map<ProcessID, std::optional<std::string>> bundleIDs; // also the absent ones: asked once a call
    for (const WindowInfo& window : *windows) {
        auto entry = entryFrom(window, m_ownProcess);
        if (!entry)
            continue;
        const auto [known, isNew] = bundleIDs.try_emplace(entry->pid);
        if (isNew)
            known->second = m_workspace.bundleIdentifier(entry->pid);
        entry->bundleID = known->second;
        entry->rect = flippedVertically(entry->rect, primaryMaxY);
        entries.push_back(std::move(*entry));
    }
    std::reverse(entries.begin(), entries.end());
    return entries;
}

} // namespace haloric
