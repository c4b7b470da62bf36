#include "fuzz/FuzzedXServer.h"

#include <array>

#include <xcb/res.h>
#include <xcb/xcb.h>

namespace {

using namespace haloric;

FuzzInput* s_input = nullptr;
std::uint32_t s_sequence = 0;
xcb_atom_t s_lastAtom = 0;

constexpr xcb_atom_t kFirstAtom = 100;
constexpr std::uint32_t kAtoms = 48; // about as many as the program interns
constexpr std::uint32_t kMostWords = 64;

template <class Cookie>
Cookie nextCookie()
{
    return {++s_sequence};
}

// Zeroed memory that libxcb's users free; null for one of sixteen requests, as for a window that has vanished.
template <class Reply>
Reply* reply(std::size_t additionalBytes = 0)
{
    if (s_input->byte() % 16 == 1)
        return nullptr;
    auto* made = static_cast<Reply*>(std::calloc(1, sizeof(Reply) + additionalBytes));
    made->response_type = 1;
    return made;
}

// An atom that means something to the program, as often as not.
xcb_atom_t anyAtom()
{
    constexpr std::array kCore{xcb_atom_t{XCB_ATOM_ATOM},   xcb_atom_t{XCB_ATOM_CARDINAL},
                               xcb_atom_t{XCB_ATOM_WINDOW}, xcb_atom_t{XCB_ATOM_STRING},
                               xcb_atom_t{XCB_ATOM_NONE},   xcb_atom_t{XCB_ATOM_WM_HINTS}};
    const std::uint8_t choice = s_input->byte();
    if (choice < 128)
        return kCore[choice % kCore.size()];
    return choice < 250 ? kFirstAtom + choice % kAtoms : s_input->number<std::uint32_t>();
}

} // namespace

namespace haloric::FuzzedXServer {

xcb_connection_t* connection()
{
    static int placeholder = 0;
    return reinterpret_cast<xcb_connection_t*>(&placeholder);
}

void answerFrom(FuzzInput& input)
{
    s_input = &input;
    s_sequence = 0;
    s_lastAtom = kFirstAtom;
}

} // namespace haloric::FuzzedXServer

// The functions of libxcb. Their names are its own.
extern "C" {

const xcb_setup_t* xcb_get_setup(xcb_connection_t*)
{
    static const xcb_setup_t setup = [] {
        xcb_setup_t made{};
        made.resource_id_base = 0x200000;
        made.resource_id_mask = 0x1FFFFF;
        return made;
    }();
    return &setup;
}

const xcb_query_extension_reply_t* xcb_get_extension_data(xcb_connection_t*, xcb_extension_t*)
{
    static const xcb_query_extension_reply_t present = [] {
        xcb_query_extension_reply_t made{};
        made.present = 1;
        return made;
    }();
    return &present;
}

void xcb_discard_reply(xcb_connection_t*, unsigned) {}

xcb_intern_atom_cookie_t xcb_intern_atom(xcb_connection_t*, std::uint8_t, std::uint16_t, const char*)
{
    return nextCookie<xcb_intern_atom_cookie_t>();
}

xcb_intern_atom_reply_t* xcb_intern_atom_reply(xcb_connection_t*, xcb_intern_atom_cookie_t, xcb_generic_error_t**)
{
    auto* made = static_cast<xcb_intern_atom_reply_t*>(std::calloc(1, sizeof(xcb_intern_atom_reply_t)));
    made->atom = s_lastAtom++;
    return made;
}

xcb_get_property_cookie_t xcb_get_property(xcb_connection_t*, std::uint8_t, xcb_window_t, xcb_atom_t, xcb_atom_t,
                                           std::uint32_t, std::uint32_t)
{
    return nextCookie<xcb_get_property_cookie_t>();
}

// Any type, a format that the protocol has, and any length up to the 64 words that are requested.
xcb_get_property_reply_t* xcb_get_property_reply(xcb_connection_t*, xcb_get_property_cookie_t, xcb_generic_error_t**)
{
    const xcb_atom_t type = anyAtom();
    constexpr std::array<std::uint8_t, 4> kFormats{32, 8, 16, 0};
    const std::uint8_t format = type == XCB_ATOM_NONE ? std::uint8_t{0} : kFormats[s_input->below(kFormats.size())];
    const std::string_view bytes = s_input->text().substr(0, kMostWords * 4);
    auto* made = reply<xcb_get_property_reply_t>(bytes.size());
    if (!made)
        return nullptr;
    made->type = type;
    made->format = format;
    made->value_len = format == 0 ? 0 : static_cast<std::uint32_t>(bytes.size() / (format / 8U));
    if (!bytes.empty())
        std::memcpy(made + 1, bytes.data(), bytes.size());
    return made;
}

xcb_get_window_attributes_cookie_t xcb_get_window_attributes(xcb_connection_t*, xcb_window_t)
{
    return nextCookie<xcb_get_window_attributes_cookie_t>();
}

xcb_get_window_attributes_reply_t*
xcb_get_window_attributes_reply(xcb_connection_t*, xcb_get_window_attributes_cookie_t, xcb_generic_error_t**)
{
    auto* made = reply<xcb_get_window_attributes_reply_t>();
    if (made)
        made->map_state = static_cast<std::uint8_t>(s_input->below(3));
    return made;
}

xcb_query_tree_cookie_t xcb_query_tree(xcb_connection_t*, xcb_window_t)
{
    return nextCookie<xcb_query_tree_cookie_t>();
}

xcb_query_tree_reply_t* xcb_query_tree_reply(xcb_connection_t*, xcb_query_tree_cookie_t, xcb_generic_error_t**)
{
    auto* made = reply<xcb_query_tree_reply_t>();
    if (made) {
        made->children_len = static_cast<std::uint16_t>(s_input->below(3)); // only the number is read
        made->parent = s_input->below(4) == 3 ? s_input->byte() : FuzzedXServer::kRoot;
    }
    return made;
}

xcb_get_geometry_cookie_t xcb_get_geometry(xcb_connection_t*, xcb_drawable_t)
{
    return nextCookie<xcb_get_geometry_cookie_t>();
}

xcb_get_geometry_reply_t* xcb_get_geometry_reply(xcb_connection_t*, xcb_get_geometry_cookie_t, xcb_generic_error_t**)
{
    auto* made = reply<xcb_get_geometry_reply_t>();
    if (made) {
        made->x = s_input->number<std::int16_t>();
        made->y = s_input->number<std::int16_t>();
        made->width = s_input->number<std::uint16_t>();
        made->height = s_input->number<std::uint16_t>();
        made->border_width = s_input->number<std::uint16_t>();
    }
    return made;
}

xcb_translate_coordinates_cookie_t xcb_translate_coordinates(xcb_connection_t*, xcb_window_t, xcb_window_t,
                                                             std::int16_t, std::int16_t)
{
    return nextCookie<xcb_translate_coordinates_cookie_t>();
}

xcb_translate_coordinates_reply_t*
xcb_translate_coordinates_reply(xcb_connection_t*, xcb_translate_coordinates_cookie_t, xcb_generic_error_t**)
{
    auto* made = reply<xcb_translate_coordinates_reply_t>();
    if (made) {
        made->dst_x = s_input->number<std::int16_t>();
        made->dst_y = s_input->number<std::int16_t>();
    }
    return made;
}

xcb_res_query_client_ids_cookie_t xcb_res_query_client_ids(xcb_connection_t*, std::uint32_t,
                                                           const xcb_res_client_id_spec_t*)
{
    return nextCookie<xcb_res_query_client_ids_cookie_t>();
}

xcb_res_query_client_ids_reply_t* xcb_res_query_client_ids_reply(xcb_connection_t*, xcb_res_query_client_ids_cookie_t,
                                                                 xcb_generic_error_t**)
{
    struct Value {
        xcb_res_client_id_spec_t spec;
        std::uint32_t length; // bytes
        std::uint32_t process;
    };
    auto* made = reply<xcb_res_query_client_ids_reply_t>(sizeof(Value));
    if (made && s_input->flag()) {
        const Value value{{s_input->number<std::uint32_t>(), XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID},
                          sizeof(std::uint32_t),
                          s_input->number<std::uint32_t>()};
        made->num_ids = 1;
        std::memcpy(made + 1, &value, sizeof value);
    }
    return made;
}

} // extern "C"
