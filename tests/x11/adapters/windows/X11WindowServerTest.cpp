#include "hosts/x11/windows/X11WindowServerLibrary.h"

#include "x11/adapters/DesktopAdapters.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace haloric {
namespace {

using Entries = WindowServerEntries;

// Notification procedures carry no context.
std::mutex notesLock;
std::vector<std::pair<std::uint32_t, std::uint32_t>> notes; // event and window

void noteEvent(std::uint32_t event, const void* data, std::int64_t length, void* context)
{
    EXPECT_EQ(length, 4);
    EXPECT_EQ(context, nullptr);
    const std::lock_guard guard(notesLock);
    notes.emplace_back(event, *static_cast<const std::uint32_t*>(data));
}

class X11WindowServerTest : public testing::TestWithParam<WindowManager> {
protected:
    X11WindowServerTest()
    {
        clearNotes();
        find(entries.mainConnection, "SLSMainConnectionID");
        find(entries.getBounds, "SLSGetWindowBounds");
        find(entries.registerProc, "SLSRegisterNotifyProc");
        find(entries.removeProc, "SLSRemoveNotifyProc");
        find(entries.request, "SLSRequestNotificationsForWindows");
        find(entries.create, "SLSTransactionCreate");
        find(entries.move, "SLSTransactionMoveWindowWithGroup");
        find(entries.commit, "SLSTransactionCommit");
        for (const std::uint32_t event : {804U, 806U, 807U, 816U})
            EXPECT_EQ(entries.registerProc(&noteEvent, event, nullptr), 0);
    }

    template <class Function>
    void find(Function& entry, const char* symbol)
    {
        entry = reinterpret_cast<Function>(opened->find(symbol));
        ASSERT_NE(entry, nullptr) << symbol;
    }

    static void clearNotes()
    {
        const std::lock_guard guard(notesLock);
        notes.clear();
    }

    static bool hasNote(std::uint32_t event, std::uint32_t window)
    {
        const std::lock_guard guard(notesLock);
        return std::ranges::find(notes, std::pair(event, window)) != notes.end();
    }

    bool isNoted(std::uint32_t event, const TestClient& client)
    {
        return adapters.waitUntil([&] { return hasNote(event, client.window()); });
    }

    std::optional<Rect> bounds(std::uint32_t window)
    {
        Entries::CRect rect{};
        if (entries.getBounds(entries.mainConnection(), window, &rect) != 0)
            return std::nullopt;
        return Rect{rect.x, rect.y, rect.width, rect.height};
    }

    bool watch(const TestClient& client)
    {
        const std::uint32_t window = client.window();
        return entries.request(entries.mainConnection(), &window, 1) == 0;
    }

    std::unique_ptr<TestClient> showClient()
    {
        auto client = session.makeClient();
        EXPECT_TRUE(client->showFocused());
        EXPECT_TRUE(adapters.waitUntil(
            [&] { return adapters.listedBounds(client->window()) == pointsOf(client->visibleFrame()); }));
        return client;
    }

    // An own window of 30 by 40 pixels at (10, 20).
    xcb_window_t showOverlay()
    {
        xcb_connection_t* own = adapters.connection->raw();
        const xcb_window_t overlay = xcb_generate_id(own);
        const std::uint32_t overrideRedirect = 1;
        xcb_create_window(own, XCB_COPY_FROM_PARENT, overlay, adapters.connection->root(), 10, 20, 30, 40, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                          &overrideRedirect);
        xcb_map_window(own, overlay);
        return overlay;
    }

    X11Session session{GetParam()};
    DesktopAdapters adapters{session.display()};
    X11WindowServerLibrary library{*adapters.connection, adapters.display.c_str(), adapters.clients, adapters.scale};
    std::unique_ptr<OpenedLibrary> opened = library.open("/any/path", WindowServerLibrary::kLazy);
    Entries entries;
};

TEST_P(X11WindowServerTest, an_unknown_symbol_is_not_found) { EXPECT_EQ(opened->find("SLSSomethingElse"), nullptr); }

TEST_P(X11WindowServerTest, a_managed_window_has_its_visible_frame)
{
    const auto client = showClient();
    // Window managers may add the frame after they have given the focus.
    const auto areThoseOfTheFrame = [&] { return bounds(client->window()) == pointsOf(client->visibleFrame()); };
    EXPECT_TRUE(adapters.waitUntil(areThoseOfTheFrame));
    ASSERT_TRUE(watch(*client));
    EXPECT_TRUE(adapters.waitUntil(areThoseOfTheFrame));
}

TEST_P(X11WindowServerTest, a_window_that_does_not_exist_has_no_bounds)
{
    EXPECT_EQ(bounds(0x1234567), std::nullopt);
    EXPECT_EQ(bounds(0), std::nullopt);
}

TEST_P(X11WindowServerTest, moves_of_the_watched_window_are_told_with_the_main_loop_at_rest)
{
    const auto client = showClient();
    ASSERT_TRUE(watch(*client));
    ASSERT_TRUE(client->moveTo(500, 420));
    // The adapters' loop does not turn here: the thread alone follows.
    EXPECT_TRUE(session.observer().waitUntil([&] { return hasNote(806, client->window()); }));
    EXPECT_TRUE(
        session.observer().waitUntil([&] { return bounds(client->window()) == pointsOf(client->visibleFrame()); }));
}

TEST_P(X11WindowServerTest, resizes_of_the_watched_window_are_told)
{
    const auto client = showClient();
    ASSERT_TRUE(watch(*client));
    ASSERT_TRUE(client->resizeTo(444, 333));
    EXPECT_TRUE(isNoted(807, *client));
    EXPECT_TRUE(adapters.waitUntil([&] { return bounds(client->window()) == pointsOf(client->visibleFrame()); }));
}

TEST_P(X11WindowServerTest, a_window_that_is_minimised_is_told_and_has_no_bounds)
{
    const auto client = showClient();
    ASSERT_TRUE(watch(*client));
    ASSERT_TRUE(client->minimise());
    EXPECT_TRUE(isNoted(816, *client));
    EXPECT_TRUE(adapters.waitUntil([&] { return !bounds(client->window()).has_value(); }));
}

TEST_P(X11WindowServerTest, the_end_of_the_window_is_told)
{
    const auto client = showClient();
    ASSERT_TRUE(watch(*client));
    ASSERT_TRUE(client->destroy());
    EXPECT_TRUE(isNoted(804, *client));
    EXPECT_EQ(bounds(client->window()), std::nullopt);
}

TEST_P(X11WindowServerTest, the_end_of_a_window_is_told_even_when_it_was_hidden_before)
{
    const auto client = showClient();
    ASSERT_TRUE(watch(*client));
    ASSERT_TRUE(client->minimise());
    ASSERT_TRUE(isNoted(816, *client));
    ASSERT_TRUE(client->destroy());
    EXPECT_TRUE(isNoted(804, *client));
}

TEST_P(X11WindowServerTest, the_change_to_full_screen_and_back_is_followed)
{
    const auto client = showClient();
    ASSERT_TRUE(watch(*client));
    ASSERT_TRUE(client->setFullScreen(true));
    EXPECT_TRUE(adapters.waitUntil([&] { return bounds(client->window()) == Rect{0, 0, 1920, 1080}; }));
    ASSERT_TRUE(client->setFullScreen(false));
    EXPECT_TRUE(adapters.waitUntil([&] { return bounds(client->window()) == pointsOf(client->visibleFrame()); }));
}

TEST_P(X11WindowServerTest, only_the_watched_window_is_told_of)
{
    const auto watched = showClient();
    const auto other = showClient();
    ASSERT_TRUE(watch(*watched));
    ASSERT_TRUE(other->moveTo(500, 420));
    ASSERT_TRUE(watched->moveTo(520, 440));
    ASSERT_TRUE(isNoted(806, *watched));
    EXPECT_FALSE(hasNote(806, other->window()));
}

TEST_P(X11WindowServerTest, nothing_is_told_after_the_watch_has_ended)
{
    const auto first = showClient();
    const auto second = showClient();
    ASSERT_TRUE(watch(*first));
    ASSERT_TRUE(first->moveTo(500, 420));
    ASSERT_TRUE(isNoted(806, *first));
    ASSERT_EQ(entries.request(entries.mainConnection(), nullptr, 0), 0);
    ASSERT_TRUE(watch(*second));
    clearNotes();
    ASSERT_TRUE(first->moveTo(100, 120));
    ASSERT_TRUE(second->moveTo(520, 440));
    ASSERT_TRUE(isNoted(806, *second));
    EXPECT_FALSE(hasNote(806, first->window()));
}

TEST_P(X11WindowServerTest, removed_procedures_are_not_called)
{
    const auto client = showClient();
    ASSERT_TRUE(watch(*client));
    EXPECT_EQ(entries.removeProc(&noteEvent, 806, nullptr), 0);
    EXPECT_NE(entries.removeProc(&noteEvent, 806, nullptr), 0) << "it is not there any more";
    ASSERT_TRUE(client->moveTo(500, 420));
    ASSERT_TRUE(client->resizeTo(444, 333));
    ASSERT_TRUE(isNoted(807, *client));
    EXPECT_FALSE(hasNote(806, client->window()));
}

TEST_P(X11WindowServerTest, one_window_at_a_time_can_be_watched)
{
    const std::uint32_t two[] = {1, 2};
    EXPECT_NE(entries.request(entries.mainConnection(), two, 2), 0);
}

TEST_P(X11WindowServerTest, a_window_of_our_own_is_moved_by_a_transaction)
{
    const xcb_window_t overlay = showOverlay();
    EXPECT_EQ(bounds(overlay), (Rect{10, 20, 30, 40}));
    void* transaction = entries.create(entries.mainConnection());
    ASSERT_NE(transaction, nullptr);
    entries.move(transaction, overlay, {-70, 80});
    EXPECT_EQ(bounds(overlay), (Rect{10, 20, 30, 40})) << "not before the commit";
    EXPECT_EQ(entries.commit(transaction, 0), 0);
    // The flushed request has reached the server before anything that another connection asks from now on.
    EXPECT_TRUE(session.observer().waitUntil([&] {
        return session.observer().rectOnRoot(overlay) == ScreenRect{-70, 80, 30, 40};
    }));
    library.release(transaction);
    EXPECT_EQ(entries.create(entries.mainConnection()), transaction) << "released ones are used again";
    library.release(transaction);
    EXPECT_THAT(adapters.listedWindows(), testing::Not(testing::Contains(overlay)));
}

TEST_P(X11WindowServerTest, places_beyond_the_protocol_are_cut_off)
{
    const xcb_window_t overlay = showOverlay();
    void* transaction = entries.create(entries.mainConnection());
    entries.move(transaction, overlay, {40000, -1e9}); // as 16 bits, the first would be far to the left
    EXPECT_EQ(entries.commit(transaction, 0), 0);
    EXPECT_TRUE(session.observer().waitUntil([&] {
        return session.observer().rectOnRoot(overlay) == ScreenRect{32767, -32768, 30, 40};
    }));
    library.release(transaction);
}

TEST_P(X11WindowServerTest, coordinates_are_points)
{
    adapters.scale.set({2, {100, 50, 1920, 1080}});
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    const ScreenRect frame = client->visibleFrame();
    EXPECT_TRUE(adapters.waitUntil([&] {
        return bounds(client->window()) ==
               Rect{(frame.x - 100) / 2.0, (frame.y - 50) / 2.0, frame.width / 2.0, frame.height / 2.0};
    }));
}

INSTANTIATE_TEST_SUITE_P(Under, X11WindowServerTest,
                         testing::Values(WindowManager::openbox, WindowManager::xfwm4, WindowManager::metacity),
                         nameOfParameter);

TEST(X11WindowServerLibrary, entries_of_a_library_that_is_gone_fail)
{
    X11Session session(WindowManager::none);
    DesktopAdapters adapters(session.display());
    std::unique_ptr<OpenedLibrary> opened;
    {
        X11WindowServerLibrary library(*adapters.connection, adapters.display.c_str(), adapters.clients,
                                       adapters.scale);
        opened = library.open("", 0);
    }
    Entries::CRect rect{};
    const auto getBounds = reinterpret_cast<decltype(Entries::getBounds)>(opened->find("SLSGetWindowBounds"));
    const auto create = reinterpret_cast<decltype(Entries::create)>(opened->find("SLSTransactionCreate"));
    EXPECT_NE(getBounds(1, adapters.connection->root(), &rect), 0);
    EXPECT_EQ(create(1), nullptr);
}

} // namespace
} // namespace haloric
