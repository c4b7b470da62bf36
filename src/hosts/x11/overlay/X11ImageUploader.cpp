#include "hosts/x11/overlay/X11ImageUploader.h"

#include "hosts/x11/overlay/X11ClickThroughWindow.h"

#include <algorithm>

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

constexpr std::uint8_t kDepth = X11ClickThroughWindow::kTranslucentDepth;

// The pixels that fit into a request without shared memory.
int pixelsOfRequest(xcb_connection_t* connection)
{
    constexpr std::uint32_t kHeaderWords = 8;
    const std::uint32_t words = xcb_get_maximum_request_length(connection) - kHeaderWords;
    return static_cast<int>(std::min<std::uint32_t>(words, X11SharedPixels::kPixels));
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

X11ImageUploader::X11ImageUploader(X11Connection& connection)
    : m_connection(connection),
      m_context(xcb_generate_id(connection.raw())),
      m_maximumPixels(pixelsOfRequest(connection.raw()))
{
    xcb_connection_t* raw = connection.raw();
    // A graphics context can be used with every drawable of the depth it was created for.
    const xcb_pixmap_t pattern = xcb_generate_id(raw);
    xcb_create_pixmap(raw, kDepth, pattern, connection.root(), 1, 1);
    xcb_create_gc(raw, m_context, pattern, 0, nullptr);
    xcb_free_pixmap(raw, pattern);

    m_pieces.reserve(kMostPieces); // m_piece points into it
    auto first = X11SharedPixels::make(connection);
    m_sharesMemory = first != nullptr;
    if (!m_sharesMemory)
        return;
    m_maximumPixels = X11SharedPixels::kPixels;
    m_pieces.push_back({std::move(first)});
    const auto type = static_cast<std::uint8_t>(connection.firstEvent(&xcb_shm_id) + XCB_SHM_COMPLETION);
    m_completions = connection.onEvent<xcb_shm_completion_event_t>(type, [this](const auto& completion) {
        for (Piece& piece : m_pieces) {
            if (piece.shared->segment() == completion.shmseg)
                piece.isRead = false;
        }
    });
}

X11ImageUploader::~X11ImageUploader() { xcb_free_gc(m_connection.raw(), m_context); }

PixelBuffer X11ImageUploader::reserve(int width, int height)
{
    const int pixels = width * height;
    const int stride = width * static_cast<int>(sizeof(std::uint32_t));
    if (!m_sharesMemory) {
        m_private.resize(std::max(m_private.size(), static_cast<std::size_t>(pixels)));
        m_reserved = {XCB_WINDOW_NONE, 0, 0, width, height, 0};
        return {m_private.data(), width, height, stride};
    }
    if (m_piece && m_piece->used + pixels > X11SharedPixels::kPixels)
        sealPiece();
    if (!m_piece)
        m_piece = findPiece();
    if (!m_piece)
        return {};
    m_reserved = {XCB_WINDOW_NONE, 0, 0, width, height, m_piece->used};
    return {m_piece->shared->data() + m_piece->used, width, height, stride};
}

X11ImageUploader::Piece* X11ImageUploader::findPiece()
{
    const auto unused = std::ranges::find(m_pieces, false, &Piece::isRead);
    if (unused != m_pieces.end()) {
        unused->used = 0;
        return &*unused;
    }
    if (m_pieces.size() == kMostPieces)
        return nullptr;
    auto shared = X11SharedPixels::make(m_connection);
    if (!shared)
        return nullptr;
    m_pieces.push_back({std::move(shared)});
    return &m_pieces.back();
}

void X11ImageUploader::put(xcb_window_t window, int x, int y)
{
    Put put = m_reserved;
    put.window = window;
    put.x = x;
    put.y = y;
    if (m_sharesMemory) {
        sendHeldPut(false);
        m_heldPut = put;
        m_piece->used += put.width * put.height;
        return;
    }
    xcb_put_image(m_connection.raw(), XCB_IMAGE_FORMAT_Z_PIXMAP, window, m_context,
                  static_cast<std::uint16_t>(put.width), static_cast<std::uint16_t>(put.height),
                  static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0, kDepth,
                  static_cast<std::uint32_t>(put.width * put.height) * sizeof(std::uint32_t),
                  reinterpret_cast<const std::uint8_t*>(m_private.data()));
}

void X11ImageUploader::finish()
{
    if (m_piece)
        sealPiece();
}

void X11ImageUploader::sendHeldPut(bool last)
{
    if (!m_heldPut)
        return;
    const Put& put = *m_heldPut;
    const auto width = static_cast<std::uint16_t>(put.width);
    const auto height = static_cast<std::uint16_t>(put.height);
    xcb_shm_put_image(m_connection.raw(), put.window, m_context, width, height, 0, 0, width, height,
                      static_cast<std::int16_t>(put.x), static_cast<std::int16_t>(put.y), kDepth,
                      XCB_IMAGE_FORMAT_Z_PIXMAP, last ? 1 : 0, m_piece->shared->segment(),
                      static_cast<std::uint32_t>(put.offset) * sizeof(std::uint32_t));
    m_heldPut.reset();
}

void X11ImageUploader::sealPiece()
{
    // Requests complete in order, so one completion event for the last covers the whole piece.
    m_piece->isRead = m_heldPut.has_value();
    sendHeldPut(true);
    m_piece = nullptr;
}

} // namespace haloric
