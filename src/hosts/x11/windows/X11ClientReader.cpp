#include "hosts/x11/windows/X11ClientReader.h"

#include "hosts/x11/server/X11Property.h"
#include "hosts/x11/server/XcbReply.h"

#include <bit>
#include <limits>
#include <utility>

namespace haloric {

namespace {

constexpr int kDeepestFrame = 16; // window managers use one to three windows around a client
constexpr std::uint32_t kIconicState = 3;

bool isPlausible(std::optional<std::uint32_t> pid)
{
    return pid && *pid > 0 && *pid <= static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max());
}

} // namespace

X11ProcessIds::X11ProcessIds(xcb_connection_t* connection, std::span<const xcb_window_t> windows)
    : m_connection(connection),
      m_resourceMask(0)
{
    const auto* setup = xcb_get_setup(connection);
    if (!setup)
        return; // the server has gone: no window will be read
    m_resourceMask = setup->resource_id_mask;
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

struct X11ClientReader::Facts {
    xcb_get_window_attributes_cookie_t attributes;
    X11PropertyRequest type;
    X11PropertyRequest transientFor;
    X11PropertyRequest states;
    X11PropertyRequest icccmState;
    X11PropertyRequest desktop;
    X11PropertyRequest opacity;
    X11PropertyRequest pid;
    X11PropertyRequest windowClass;
    X11PropertyRequest applicationId;
};

struct X11ClientReader::Measurement {
    xcb_get_geometry_cookie_t client;
    xcb_get_geometry_cookie_t frame;
    xcb_translate_coordinates_cookie_t offset;
    X11PropertyRequest decoration;
    X11PropertyRequest shadow;
};

X11ClientReader::Facts X11ClientReader::askForFacts(xcb_window_t window) const
{
    const auto ask = [&](xcb_atom_t property) { return X11PropertyRequest(m_connection, window, property); };
    return {xcb_get_window_attributes(m_connection, window),
            ask(m_atoms.windowType),
            ask(XCB_ATOM_WM_TRANSIENT_FOR),
            ask(m_atoms.state),
            ask(m_atoms.icccmState),
            ask(m_atoms.desktop),
            ask(m_atoms.opacity),
            ask(m_atoms.pid),
            ask(XCB_ATOM_WM_CLASS),
            ask(m_atoms.applicationId)};
}

X11WindowType X11ClientReader::typeFrom(const X11Property& types, bool isTransient) const
{
    // Clients list their types in order of preference; the first one that is known counts.
    for (const xcb_atom_t type : types.atoms()) {
        if (type == m_atoms.typeNormal)
            return X11WindowType::normal;
        if (type == m_atoms.typeDialog)
            return X11WindowType::dialog;
        if (type == m_atoms.typeUtility)
            return X11WindowType::utility;
        if (type == m_atoms.typeDock)
            return X11WindowType::dock;
        if (type == m_atoms.typeDesktop)
            return X11WindowType::desktop;
        for (const xcb_atom_t other : {m_atoms.typeMenu, m_atoms.typeNotification, m_atoms.typeSplash,
                                       m_atoms.typeToolbar, m_atoms.typeTooltip}) {
            if (type == other)
                return X11WindowType::other;
        }
    }
    return isTransient ? X11WindowType::dialog : X11WindowType::normal;
}

// Fills in everything but process, frame and geometry.
std::optional<X11ClientRecord> X11ClientReader::takeFacts(xcb_window_t window, Facts& facts) const
{
    const XcbReply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(m_connection, facts.attributes, nullptr));
    if (!attributes)
        return std::nullopt;
    X11ClientRecord record;
    X11Client& client = record.client;
    client.window = window;
    client.mapped = attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    client.type = typeFrom(facts.type.take(), facts.transientFor.take().exists());
    const X11Property states = facts.states.take();
    client.hidden = states.contains(XCB_ATOM_ATOM, m_atoms.stateHidden);
    client.shaded = states.contains(XCB_ATOM_ATOM, m_atoms.stateShaded);
    client.above = states.contains(XCB_ATOM_ATOM, m_atoms.stateAbove);
    client.iconic = facts.icccmState.take().first(m_atoms.icccmState) == kIconicState;
    client.desktop = facts.desktop.take().cardinal().value_or(X11Client::kEveryDesktop);
    client.opacity = facts.opacity.take().cardinal().value_or(std::numeric_limits<std::uint32_t>::max()) /
                     double{std::numeric_limits<std::uint32_t>::max()};
    const X11Property windowClass = facts.windowClass.take();
    record.names = {std::string(facts.applicationId.take().text()), windowClass.latin1Text(0),
                    windowClass.latin1Text(1)};
    return record;
}

std::vector<std::optional<X11ClientRecord>> X11ClientReader::read(std::span<const xcb_window_t> windows) const
{
    std::vector<Facts> facts;
    facts.reserve(windows.size());
    X11ProcessIds processes(m_connection, windows);
    for (const xcb_window_t window : windows)
        facts.push_back(askForFacts(window));
    const auto framesOfWindows = frames(windows);

    std::vector<std::optional<X11ClientRecord>> records(windows.size());
    std::vector<X11Client*> toMeasure;
    for (std::size_t index = 0; index < windows.size(); ++index) {
        auto& record = records[index];
        record = takeFacts(windows[index], facts[index]);
        if (record && framesOfWindows[index].window == XCB_WINDOW_NONE)
            record.reset();
        if (!record)
            continue;
        record->client.pid = processes.of(windows[index], facts[index].pid.take().cardinal());
        record->client.frame = framesOfWindows[index].window;
        record->client.isFramedAlone = framesOfWindows[index].holdsOneChild;
        toMeasure.push_back(&record->client);
    }
    measure(toMeasure);
    for (auto& record : records) {
        if (record && record->client.measuredAt == 0)
            record.reset(); // vanished before it could be measured
    }
    return records;
}

std::vector<X11ClientReader::Frame> X11ClientReader::frames(std::span<const xcb_window_t> windows) const
{
    std::vector<Frame> found(windows.size());
    std::vector<xcb_window_t> current(windows.begin(), windows.end()); // none: this walk has ended
    std::vector<xcb_query_tree_cookie_t> cookies(windows.size());
    bool walking = true;
    for (int depth = 0; walking && depth < kDeepestFrame; ++depth) {
        walking = false;
        for (std::size_t index = 0; index < current.size(); ++index) {
            if (current[index] != XCB_WINDOW_NONE)
                cookies[index] = xcb_query_tree(m_connection, current[index]);
        }
        for (std::size_t index = 0; index < current.size(); ++index) {
            if (current[index] == XCB_WINDOW_NONE)
                continue;
            const XcbReply<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(m_connection, cookies[index], nullptr));
            const xcb_window_t parent = tree ? tree->parent : xcb_window_t{XCB_WINDOW_NONE};
            if (parent == m_root)
                found[index] = {current[index], depth == 1 && tree->children_len == 1};
            current[index] = parent == m_root ? xcb_window_t{XCB_WINDOW_NONE} : parent;
            walking = walking || current[index] != XCB_WINDOW_NONE;
        }
    }
    return found;
}

X11ClientReader::Measurement X11ClientReader::askForMeasurement(const X11Client& client) const
{
    // Where the client lies in its frame does not change when the frame moves between two requests.
    return {xcb_get_geometry(m_connection, client.window), xcb_get_geometry(m_connection, client.frame),
            xcb_translate_coordinates(m_connection, client.window, client.frame, 0, 0),
            X11PropertyRequest(m_connection, client.window, m_atoms.frameExtents),
            X11PropertyRequest(m_connection, client.window, m_atoms.gtkFrameExtents)};
}

void X11ClientReader::takeMeasurement(X11Client& client, Measurement& measurement,
                                      const xcb_get_geometry_reply_t& root) const
{
    const XcbReply<xcb_get_geometry_reply_t> inner(xcb_get_geometry_reply(m_connection, measurement.client, nullptr));
    const XcbReply<xcb_get_geometry_reply_t> outer(xcb_get_geometry_reply(m_connection, measurement.frame, nullptr));
    const XcbReply<xcb_translate_coordinates_reply_t> offset(
        xcb_translate_coordinates_reply(m_connection, measurement.offset, nullptr));
    if (!inner || !outer || !offset)
        return;
    X11FrameGeometry& geometry = client.geometry;
    geometry.frame = X11FrameGeometry::outerRect(outer->x, outer->y, outer->width, outer->height, outer->border_width);
    geometry.client = {offset->dst_x + outer->border_width, offset->dst_y + outer->border_width, inner->width,
                       inner->height};
    geometry.decoration = m_measuresFrames && client.isFramedAlone
                              ? geometry.aroundClient()
                              : X11Extents::from(measurement.decoration.take(), root.width, root.height);
    // Some window managers take the frame away for full screen and forget to say that its extents have gone with it.
    if (geometry.decoration && client.frame == client.window)
        geometry.decoration = X11Extents{};
    geometry.shadow = X11Extents::from(measurement.shadow.take(), root.width, root.height);
    client.measuredAt = measurement.frame.sequence;
}

void X11ClientReader::measure(std::span<X11Client* const> clients) const
{
    if (clients.empty())
        return;
    const auto rootCookie = xcb_get_geometry(m_connection, m_root);
    std::vector<Measurement> measurements;
    measurements.reserve(clients.size());
    for (const X11Client* client : clients)
        measurements.push_back(askForMeasurement(*client));
    const XcbReply<xcb_get_geometry_reply_t> root(xcb_get_geometry_reply(m_connection, rootCookie, nullptr));
    for (std::size_t index = 0; root && index < clients.size(); ++index)
        takeMeasurement(*clients[index], measurements[index], *root);
}

} // namespace haloric
