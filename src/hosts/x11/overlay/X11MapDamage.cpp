#include "hosts/x11/overlay/X11MapDamage.h"

#include <algorithm>

namespace haloric {

void X11MapDamage::mapped(xcb_window_t window)
{
    if (std::ranges::find(m_windows, window) == m_windows.end())
        m_windows.push_back(window);
    m_step = 0;
    schedule();
}

void X11MapDamage::schedule()
{
    m_timer = m_runLoop.scheduleOnce(kDelays.at(m_step), [this] { damageAll(); });
}

void X11MapDamage::damageAll()
{
    for (const xcb_window_t window : m_windows)
        damage(window);
    m_connection.flush();
    if (++m_step < kDelays.size())
        schedule();
    else
        m_windows.clear();
}

// Copying a pixel onto itself changes nothing and is reported as damage.
void X11MapDamage::damage(xcb_window_t window)
{
    xcb_connection_t* raw = m_connection.raw();
    const xcb_gcontext_t context = xcb_generate_id(raw);
    const std::uint32_t withoutExposures = 0;
    xcb_create_gc(raw, context, window, XCB_GC_GRAPHICS_EXPOSURES, &withoutExposures);
    xcb_copy_area(raw, window, window, context, 0, 0, 0, 0, 1, 1);
    xcb_free_gc(raw, context);
}

} // namespace haloric
