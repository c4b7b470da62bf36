#include "desktop/MovementWatcher.h"

#include <algorithm>

#include <poll.h>

namespace haloric {

namespace {

using namespace std::chrono_literals;
constexpr auto kSampleInterval = 500us;

ScreenRect await(xcb_connection_t* connection, xcb_get_geometry_cookie_t cookie)
{
    const TestConnection::Reply<xcb_get_geometry_reply_t> reply(xcb_get_geometry_reply(connection, cookie, nullptr));
    return reply ? ScreenRect{reply->x, reply->y, reply->width, reply->height} : ScreenRect{};
}

} // namespace

MovementWatcher::MovementWatcher(const std::string& display, xcb_window_t frame, xcb_window_t overlay)
    : m_moveConnection(display),
      m_sampleConnection(display),
      m_frame(frame),
      m_overlay(overlay)
{
    xcb_connection_t* connection = m_moveConnection.raw();
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, m_moveConnection.root(), XCB_CW_EVENT_MASK, &mask);
    m_frameStart = await(connection, xcb_get_geometry(connection, frame));
    m_overlayStart = await(connection, xcb_get_geometry(connection, overlay));
    m_recorder = std::thread([this] { recordMoves(); });
    m_sampler = std::thread([this] { samplePositions(); });
}

MovementWatcher::~MovementWatcher()
{
    if (!m_finished)
        finish();
}

void MovementWatcher::recordMoves()
{
    xcb_connection_t* connection = m_moveConnection.raw();
    pollfd descriptor{xcb_get_file_descriptor(connection), POLLIN, 0};
    while (!m_finished) {
        while (const TestConnection::Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection)}) {
            if ((event->response_type & 0x7F) != XCB_CONFIGURE_NOTIFY)
                continue;
            const auto& configure = reinterpret_cast<const xcb_configure_notify_event_t&>(*event);
            if (configure.window != m_frame && configure.window != m_overlay)
                continue;
            const bool ofFrame = configure.window == m_frame;
            const ScreenRect& start = ofFrame ? m_frameStart : m_overlayStart;
            m_moves.push_back(
                {ofFrame, configure.x - start.x, configure.y - start.y, std::chrono::steady_clock::now()});
        }
        poll(&descriptor, 1, 20); // milliseconds: bounds only the wait for m_finished
    }
}

void MovementWatcher::samplePositions()
{
    xcb_connection_t* connection = m_sampleConnection.raw();
    auto next = std::chrono::steady_clock::now();
    while (!m_finished) {
        // Both requests are sent in one write, so that the X server processes them consecutively.
        const auto frameCookie = xcb_get_geometry(connection, m_frame);
        const auto overlayCookie = xcb_get_geometry(connection, m_overlay);
        const ScreenRect frame = await(connection, frameCookie);
        const ScreenRect overlay = await(connection, overlayCookie);
        ++m_samples;
        if (frame.x - m_frameStart.x != overlay.x - m_overlayStart.x ||
            frame.y - m_frameStart.y != overlay.y - m_overlayStart.y)
            ++m_disagreements;
        next += kSampleInterval;
        std::this_thread::sleep_until(next);
    }
}

std::vector<double> MovementWatcher::lags() const
{
    std::vector<double> lags;
    for (auto move = m_moves.begin(); move != m_moves.end(); ++move) {
        if (!move->ofFrame)
            continue;
        // The overlay may skip a step; then its move to a later step counts for both.
        const auto answers = [&](const Move& later) {
            if (later.ofFrame)
                return false;
            return std::any_of(move, m_moves.end(), [&](const Move& step) {
                return step.ofFrame && step.x == later.x && step.y == later.y;
            });
        };
        const auto answer = std::find_if(move, m_moves.end(), answers);
        if (answer != m_moves.end())
            lags.push_back(std::chrono::duration<double, std::milli>(answer->at - move->at).count());
    }
    return lags;
}

MovementWatcher::Result MovementWatcher::finish()
{
    m_finished = true;
    m_recorder.join();
    m_sampler.join();
    Result result;
    result.frameMoves = static_cast<std::size_t>(
        std::count_if(m_moves.begin(), m_moves.end(), [](const Move& m) { return m.ofFrame; }));
    result.lagMilliseconds = lags();
    result.samples = m_samples;
    result.disagreements = m_disagreements;
    return result;
}

} // namespace haloric
