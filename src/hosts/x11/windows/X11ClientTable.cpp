#include "hosts/x11/windows/X11ClientTable.h"

#include <algorithm>
#include <utility>

namespace haloric {

const X11ClientTable::Entry* X11ClientTable::entry(xcb_window_t window) const
{
    const auto found = std::ranges::find(m_entries, window, [](const Entry& e) { return e.record.client.window; });
    return found == m_entries.end() ? nullptr : &*found;
}

X11ClientTable::Entry* X11ClientTable::entry(xcb_window_t window)
{
    return const_cast<Entry*>(std::as_const(*this).entry(window));
}

const X11ClientTable::Entry* X11ClientTable::mainEntry(ProcessID pid) const
{
    const Entry* best = nullptr;
    for (const Entry& candidate : m_entries) {
        // Later entries lie higher, so they win when neither was ever active.
        if (candidate.record.client.pid == pid && (!best || candidate.activation >= best->activation))
            best = &candidate;
    }
    return best;
}

const X11Client* X11ClientTable::find(xcb_window_t window) const
{
    const Entry* found = entry(window);
    return found ? &found->record.client : nullptr;
}

const X11Client* X11ClientTable::active() const { return find(m_state.activeWindow); }

const X11Client* X11ClientTable::mainWindow(ProcessID pid) const
{
    const Entry* found = mainEntry(pid);
    return found ? &found->record.client : nullptr;
}

const ApplicationNames* X11ClientTable::names(ProcessID pid) const
{
    const Entry* found = mainEntry(pid);
    return found ? &found->record.names : nullptr;
}

bool X11ClientTable::isHidden(ProcessID pid) const
{
    if (m_state.showingDesktop)
        return true;
    bool hasWindow = false;
    for (const Entry& candidate : m_entries) {
        if (candidate.record.client.pid != pid)
            continue;
        if (!candidate.record.client.isMinimised())
            return false;
        hasWindow = true;
    }
    return hasWindow;
}

std::vector<const X11Client*> X11ClientTable::stacking() const
{
    std::vector<const X11Client*> clients;
    clients.reserve(m_entries.size());
    for (const Entry& listed : m_entries) {
        if (listed.isListed)
            clients.push_back(&listed.record.client);
    }
    return clients;
}

std::vector<ProcessID> X11ClientTable::processes() const
{
    std::vector<ProcessID> pids;
    for (const Entry& listed : m_entries) {
        if (listed.isListed)
            pids.push_back(listed.record.client.pid);
    }
    std::ranges::sort(pids);
    pids.erase(std::unique(pids.begin(), pids.end()), pids.end());
    return pids;
}

xcb_window_t X11ClientTable::clientOf(xcb_window_t window) const
{
    const auto found = std::ranges::find_if(m_entries, [window](const Entry& known) {
        return known.record.client.window == window || known.record.client.frame == window;
    });
    return found == m_entries.end() ? xcb_window_t{XCB_WINDOW_NONE} : found->record.client.window;
}

std::vector<xcb_window_t> X11ClientTable::windows() const
{
    std::vector<xcb_window_t> windows;
    for (const Entry& known : m_entries)
        windows.push_back(known.record.client.window);
    return windows;
}

void X11ClientTable::store(X11ClientRecord record)
{
    if (Entry* known = entry(record.client.window))
        known->record = std::move(record);
    else
        m_entries.push_back({std::move(record), std::nullopt, 0, false});
}

X11Client* X11ClientTable::edit(xcb_window_t window)
{
    Entry* found = entry(window);
    return found ? &found->record.client : nullptr;
}

void X11ClientTable::remove(xcb_window_t window)
{
    const Entry* known = entry(window);
    if (!known)
        return;
    if (known->reported)
        m_vanished.push_back({known->record.client.pid, window, X11ClientChange::vanished});
    m_entries.erase(m_entries.begin() + (known - m_entries.data()));
}

void X11ClientTable::setState(const X11DesktopState& state)
{
    m_state = state;
    if (Entry* known = entry(state.activeWindow))
        known->activation = ++m_activations;
}

void X11ClientTable::setStacking(std::span<const xcb_window_t> bottomToTop)
{
    for (Entry& known : m_entries)
        known.isListed = false;
    std::size_t sorted = 0;
    for (const xcb_window_t window : bottomToTop) {
        Entry* known = entry(window);
        if (!known || known->isListed)
            continue;
        known->isListed = true;
        std::swap(*known, m_entries[sorted++]);
    }
}

std::optional<X11ClientTable::Configured> X11ClientTable::configureFrame(xcb_window_t frame, const PixelRect& outer,
                                                                         std::uint32_t sequence)
{
    for (Entry& candidate : m_entries) {
        X11Client& client = candidate.record.client;
        if (client.frame != frame)
            continue;
        if (static_cast<std::int32_t>(sequence - client.measuredAt) < 0)
            return std::nullopt;
        const PixelRect before = client.geometry.frame;
        client.geometry.frameConfigured(outer);
        return Configured{client.window, before.width != outer.width || before.height != outer.height};
    }
    return std::nullopt;
}

std::vector<X11ClientNotice> X11ClientTable::takeNotices()
{
    auto notices = std::exchange(m_vanished, {});
    for (Entry& known : m_entries) {
        const X11Client& now = known.record.client;
        if (known.reported)
            X11ClientNotice::appendChanges(notices, *known.reported, now);
        else
            notices.push_back({now.pid, now.window, X11ClientChange::appeared});
        known.reported = now;
    }
    return notices;
}

} // namespace haloric
