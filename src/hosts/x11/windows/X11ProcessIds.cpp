#include "hosts/x11/windows/X11ProcessIds.h"

#include "hosts/x11/server/XcbReply.h"

#include <bit>
#include <limits>
#include <utility>
#include <vector>

namespace haloric {

namespace {

bool isPlausible(std::optional<std::uint32_t> pid)
{
    return pid && *pid > 0 && *pid <= static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max());
}

} // namespace

X11ProcessIds::X11ProcessIds(xcb_connection_t* connection, std::span<const xcb_window_t> windows)
    : m_connection(connection),
      m_resourceMask(xcb_get_setup(connection)->resource_id_mask)
{
    const auto* extension = xcb_get_extension_data(connection, &xcb_res_id);
    if (windows.empty() || !extension || extension->present == 0)
        return;
    std::vector<xcb_res_client_id_spec_t> specs;
    specs.reserve(windows.size());
    for (const xcb_window_t window : windows)
        specs.push_back({window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID});
    m_cookie = xcb_res_query_client_ids(connection, static_cast<std::uint32_t>(specs.size()), specs.data());
}

X11ProcessIds::~X11ProcessIds()
{
    if (m_cookie)
        xcb_discard_reply(m_connection, m_cookie->sequence);
}

void X11ProcessIds::takeAnswer()
{
    const auto cookie = std::exchange(m_cookie, std::nullopt);
    const XcbReply<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(m_connection, *cookie, nullptr));
    if (!reply)
        return;
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem > 0;
         xcb_res_client_id_value_next(&ids)) {
        const bool isProcess = (ids.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0;
        if (isProcess && xcb_res_client_id_value_value_length(ids.data) > 0)
            m_byConnection[ids.data->spec.client & ~m_resourceMask] = *xcb_res_client_id_value_value(ids.data);
    }
}

ProcessID X11ProcessIds::of(xcb_window_t window, std::optional<std::uint32_t> propertyId)
{
    if (m_cookie)
        takeAnswer();
    const auto found = m_byConnection.find(window & ~m_resourceMask);
    const auto serverId = found == m_byConnection.end() ? std::nullopt : std::optional(found->second);
    return choose(serverId, propertyId, window, m_resourceMask);
}

ProcessID X11ProcessIds::choose(std::optional<std::uint32_t> serverId, std::optional<std::uint32_t> propertyId,
                                xcb_window_t window, std::uint32_t resourceMask)
{
    for (const auto& id : {serverId, propertyId}) {
        if (isPlausible(id))
            return static_cast<ProcessID>(*id);
    }
    const std::uint32_t connection = (window & ~resourceMask) >> std::popcount(resourceMask);
    return static_cast<ProcessID>(kFirstPseudoId + static_cast<std::int32_t>(connection));
}

} // namespace haloric
