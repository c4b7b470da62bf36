#include "windowserver/WindowServer.h"

#include <cmath>
#include <string>
#include <utility>

namespace haloric {

WindowServer::WindowServer(WindowServerLibrary& library, const Processes& processes, RunLoop& runLoop, Log& log)
    : m_library(library),
      m_runLoop(runLoop),
      m_log(log)
{
    if (processes.environmentVariable(kDisableVariable) == "1") {
        m_log.line("WindowServer fast path disabled; using display-linked fallback");
        return;
    }
    m_framework = m_library.open(kFrameworkPath, WindowServerLibrary::kLazy | WindowServerLibrary::kLocal);
    if (m_framework)
        m_entries = WindowServerEntries::find(*m_framework);
    if (!m_entries.canNotify() || !m_entries.canGetBounds())
        m_log.line("WindowServer notifications unavailable; using display-linked fallback");
}

WindowServer::~WindowServer() { removeRegistrations(); }

std::optional<Rect> WindowServer::bounds(WindowNumber windowID) const
{
    if (windowID == WindowNumber::none || !m_entries.canGetBounds())
        return std::nullopt;
    WindowServerEntries::CRect rect{};
    if (m_entries.getBounds(m_entries.mainConnection(), static_cast<std::uint32_t>(windowID), &rect) != 0)
        return std::nullopt;
    const bool finite =
        std::isfinite(rect.x) && std::isfinite(rect.y) && std::isfinite(rect.width) && std::isfinite(rect.height);
    if (!finite || !(rect.width > 1.0 && rect.height > 1.0))
        return std::nullopt;
    return Rect{rect.x, rect.y, rect.width, rect.height};
}

bool WindowServer::move(WindowNumber windowID, Point point)
{
    if (windowID == WindowNumber::none || !std::isfinite(point.x) || !std::isfinite(point.y))
        return false;
    const char* reason = tryMove(windowID, point);
    if (!reason)
        return true;
    if (!std::exchange(m_loggedMovementFailure, true))
        m_log.line(std::string("WindowServer overlay transaction failed: ") + reason);
    return false;
}

const char* WindowServer::tryMove(WindowNumber windowID, Point point)
{
    if (!m_entries.canMove())
        return "required symbol unavailable";
    void* const transaction = m_entries.create(m_entries.mainConnection());
    if (!transaction)
        return "transaction creation failed";
    m_entries.move(transaction, static_cast<std::uint32_t>(windowID), {point.x, point.y});
    m_entries.commit(transaction, 0);
    m_library.release(transaction);
    return nullptr;
}

} // namespace haloric
