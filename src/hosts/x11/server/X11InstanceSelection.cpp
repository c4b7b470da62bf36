#include "hosts/x11/server/X11InstanceSelection.h"

#include "hosts/x11/server/X11Property.h"

#include <array>
#include <cstring>
#include <string>
#include <string_view>

#include <unistd.h>

namespace haloric {

namespace {

constexpr std::uint32_t kMostWords = 1024; // of a path

std::string ownMachine()
{
    std::array<char, 256> name{};
    return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

void setText(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property, std::string_view text)
{
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
}

} // namespace

X11InstanceSelection::X11InstanceSelection(X11Connection& connection)
    : m_connection(connection),
      m_selection(intern("COM_KESTROW_HALORIC_INSTANCE")),
      m_socket(intern("COM_KESTROW_HALORIC_SOCKET")),
      m_machine(intern("WM_CLIENT_MACHINE"))
{
}

xcb_atom_t X11InstanceSelection::intern(const char* name) const
{
    xcb_connection_t* raw = m_connection.raw();
    const auto cookie = xcb_intern_atom(raw, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const XcbReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(raw, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::optional<std::filesystem::path> X11InstanceSelection::claim(const std::filesystem::path& socket)
{
    xcb_connection_t* raw = m_connection.raw();
    xcb_grab_server(raw);
    auto other = holder();
    if (!other) {
        const xcb_window_t window = xcb_generate_id(raw);
        xcb_create_window(raw, 0, window, m_connection.root(), -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                          XCB_COPY_FROM_PARENT, 0, nullptr);
        setText(raw, window, m_socket, socket.native());
        setText(raw, window, m_machine, ownMachine());
        xcb_set_selection_owner(raw, window, m_selection, XCB_CURRENT_TIME);
    }
    xcb_ungrab_server(raw);
    m_connection.flush();
    return other;
}

std::optional<std::filesystem::path> X11InstanceSelection::holder() const
{
    xcb_connection_t* raw = m_connection.raw();
    const XcbReply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(raw, xcb_get_selection_owner(raw, m_selection), nullptr));
    if (!owner || owner->owner == XCB_WINDOW_NONE)
        return {};
    X11PropertyRequest machine(raw, owner->owner, m_machine);
    X11PropertyRequest socket(raw, owner->owner, m_socket, kMostWords);
    const X11Property path = socket.take();
    return std::filesystem::path(machine.take().text() == ownMachine() ? path.text() : std::string_view());
}

} // namespace haloric
