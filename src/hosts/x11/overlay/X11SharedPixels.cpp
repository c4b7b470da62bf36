#include "hosts/x11/overlay/X11SharedPixels.h"

#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

namespace haloric {

namespace {

constexpr std::size_t kBytes = X11SharedPixels::kPixels * sizeof(std::uint32_t);

// Only local sockets carry descriptors; libxcb shuts a connection down that cannot carry one.
bool carriesDescriptors(xcb_connection_t* connection)
{
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    return getsockname(xcb_get_file_descriptor(connection), reinterpret_cast<sockaddr*>(&address), &length) == 0 &&
           address.ss_family == AF_UNIX;
}

bool supportsDescriptors(X11Connection& connection)
{
    if (!connection.has(&xcb_shm_id))
        return false;
    const XcbReply<xcb_shm_query_version_reply_t> version(
        xcb_shm_query_version_reply(connection.raw(), xcb_shm_query_version(connection.raw()), nullptr));
    return version && (version->major_version > 1 || (version->major_version == 1 && version->minor_version >= 2));
}

} // namespace

std::unique_ptr<X11SharedPixels> X11SharedPixels::make(X11Connection& connection)
{
    xcb_connection_t* raw = connection.raw();
    if (!carriesDescriptors(raw) || !supportsDescriptors(connection))
        return nullptr;
    const int descriptor = memfd_create("haloric-pixels", MFD_CLOEXEC);
    if (descriptor < 0)
        return nullptr;
    void* memory = MAP_FAILED;
    if (ftruncate(descriptor, static_cast<off_t>(kBytes)) == 0)
        memory = mmap(nullptr, kBytes, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    if (memory == MAP_FAILED) {
        close(descriptor);
        return nullptr;
    }
    std::unique_ptr<X11SharedPixels> pixels(new X11SharedPixels(connection, static_cast<std::uint32_t*>(memory)));
    const xcb_shm_seg_t segment = xcb_generate_id(raw);
    const auto cookie = xcb_shm_attach_fd_checked(raw, segment, descriptor, 1); // closes the descriptor
    const XcbReply<xcb_generic_error_t> error(xcb_request_check(raw, cookie));
    if (error || xcb_connection_has_error(raw) != 0)
        return nullptr;
    pixels->m_segment = segment;
    return pixels;
}

X11SharedPixels::~X11SharedPixels()
{
    if (m_segment != XCB_NONE)
        xcb_shm_detach(m_connection.raw(), m_segment);
    munmap(m_data, kBytes);
}

} // namespace haloric
