#include "hosts/x11/windows/X11FrameWatch.h"

#include "hosts/x11/server/X11Connection.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace haloric {

namespace {

void signal(int descriptor)
{
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(descriptor, &one, sizeof one); // full means: already signalled
}

} // namespace

X11FrameWatch::X11FrameWatch(const char* display, const X11Atoms& atoms, Handler handler)
    : m_handler(std::move(handler))
{
    int screenNumber = 0;
    xcb_connection_t* connection = xcb_connect(display, &screenNumber);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection); // also frees what a failed attempt left
        return;
    }
    m_wakeDescriptor = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    if (m_wakeDescriptor < 0) {
        xcb_disconnect(connection);
        throw std::system_error(errno, std::generic_category(), "eventfd");
    }
    m_connection = connection;
    m_watched.emplace(connection, X11Connection::findScreen(connection, screenNumber).root, atoms);
    m_thread = std::thread([this] { run(); });
}

X11FrameWatch::~X11FrameWatch()
{
    if (!m_connection)
        return;
    {
        const std::lock_guard guard(m_lock);
        m_isEnding = true;
    }
    signal(m_wakeDescriptor);
    m_thread.join();
    xcb_disconnect(m_connection);
    close(m_wakeDescriptor);
}

void X11FrameWatch::watch(xcb_window_t window, const X11Client* known)
{
    if (!m_connection)
        return;
    {
        const std::lock_guard guard(m_lock);
        m_target = {window, m_target.serial + 1, known != nullptr, true, std::nullopt};
        if (known)
            m_target.visibleFrame = known->visibleFrame();
    }
    signal(m_wakeDescriptor);
}

X11FrameWatch::Sighting X11FrameWatch::look(xcb_window_t window) const
{
    const std::lock_guard guard(m_lock);
    if (window == XCB_WINDOW_NONE || m_target.window != window || !m_target.isSeen)
        return {};
    return {true, m_target.visibleFrame};
}

void X11FrameWatch::run()
{
    while (adopt()) {
        while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)})
            m_watched->handle(*event);
        // First what the events say, without delay; then what they leave open, with the events that come along with
        // the replies, of which the descriptor does not tell.
        tell();
        if (m_watched->readAgain())
            continue;
        if (xcb_connection_has_error(m_connection) != 0)
            return;
        wait();
    }
}

// Takes over what is wanted by now. False when that is the end.
bool X11FrameWatch::adopt()
{
    Target target;
    {
        const std::lock_guard guard(m_lock);
        if (m_isEnding)
            return false;
        target = m_target;
    }
    if (std::exchange(m_serial, target.serial) != target.serial)
        m_watched->become(target.window);
    return true;
}

// Makes the current rectangle known and tells how it differs from the one before.
void X11FrameWatch::tell()
{
    const xcb_window_t window = m_watched->window();
    if (window == XCB_WINDOW_NONE)
        return;
    const auto now = m_watched->visibleFrame();
    const bool exists = m_watched->exists();
    std::optional<PixelRect> before;
    {
        const std::lock_guard guard(m_lock);
        if (m_target.serial != m_serial)
            return; // another window is wanted by now
        before = std::exchange(m_target.visibleFrame, now);
        const bool existed = std::exchange(m_target.exists, exists);
        const bool wasSeen = std::exchange(m_target.isSeen, true);
        if (wasSeen && before == now && existed == exists)
            return;
    }
    if (!now) {
        m_handler(window, exists ? Event::hidden : Event::destroyed);
        return;
    }
    if (!before || before->x != now->x || before->y != now->y)
        m_handler(window, Event::moved);
    if (!before || before->width != now->width || before->height != now->height)
        m_handler(window, Event::resized);
}

void X11FrameWatch::wait()
{
    xcb_flush(m_connection);
    std::array<pollfd, 2> descriptors{
        {{xcb_get_file_descriptor(m_connection), POLLIN, 0}, {m_wakeDescriptor, POLLIN, 0}}};
    poll(descriptors.data(), descriptors.size(), -1);
    std::uint64_t count = 0;
    [[maybe_unused]] const auto taken = read(m_wakeDescriptor, &count, sizeof count);
}

} // namespace haloric
