// What programs do wrong, and what happens at bad moments.
#include "x11/adapters/DesktopAdapters.h"

#include <unistd.h>

namespace haloric {
namespace {

class X11ClientsTest : public testing::Test {
protected:
    bool knows(xcb_window_t window)
    {
        return adapters.waitUntil([&] { return adapters.clients.table().find(window) != nullptr; });
    }

    X11Session session{WindowManager::openbox};
    DesktopAdapters adapters{session.display()};
};

TEST_F(X11ClientsTest, broken_properties_count_as_absent)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    ASSERT_TRUE(knows(client->window()));
    const Rect frame = pointsOf(client->visibleFrame());
    TestConnection& own = client->connection();
    const char* const names[] = {"_NET_WM_WINDOW_TYPE",    "_NET_WM_PID",        "_NET_WM_DESKTOP",
                                 "_NET_WM_WINDOW_OPACITY", "_GTK_FRAME_EXTENTS", "_GTK_APPLICATION_ID"};
    for (const char* name : names)
        own.setValues(client->window(), name, XCB_ATOM_STRING, {1, 2, 3});
    own.setValues(client->window(), "WM_CLASS", XCB_ATOM_CARDINAL, {1});
    own.synchronize();
    ASSERT_TRUE(
        adapters.waitUntil([&] { return !adapters.workspace.bundleIdentifier(adapters.frontmost()).has_value(); }));
    const X11Client* known = adapters.clients.table().find(client->window());
    ASSERT_TRUE(known);
    EXPECT_EQ(known->type, X11WindowType::normal);
    EXPECT_EQ(known->opacity, 1);
    EXPECT_EQ(adapters.listedBounds(client->window()), frame);
}

TEST_F(X11ClientsTest, extents_without_sense_do_not_move_a_window)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    ASSERT_TRUE(knows(client->window()));
    TestConnection& own = client->connection();
    for (const auto& values : {std::vector<std::uint32_t>{1, 2}, {0xFFFFFFFF, 0, 0xFFFFFFFF, 0}, {4000, 4000, 0, 0}}) {
        own.setValues(client->window(), "_GTK_FRAME_EXTENTS", XCB_ATOM_CARDINAL, values);
        own.synchronize();
        adapters.settle();
        EXPECT_EQ(adapters.listedBounds(client->window()), (Rect{299, 230, 602, 425}))
            << "openbox draws 1, 1, 20 and 5 pixels around it";
    }
}

TEST_F(X11ClientsTest, windows_that_vanish_at_once_leave_no_trace)
{
    const auto stays = session.makeClient();
    ASSERT_TRUE(stays->showFocused());
    TestConnection other(session.display());
    for (int round = 0; round < 200; ++round) {
        const xcb_window_t window = xcb_generate_id(other.raw());
        xcb_create_window(other.raw(), XCB_COPY_FROM_PARENT, window, other.root(), 0, 0, 50, 50, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(other.raw(), window);
        xcb_flush(other.raw());
        if (round % 3 == 0)
            adapters.loop.turn(Seconds(0.002));
        xcb_destroy_window(other.raw(), window);
        xcb_flush(other.raw());
        adapters.loop.turn(Seconds(0));
    }
    other.synchronize();
    EXPECT_TRUE(adapters.waitUntil(
        [&] { return session.observer().clientList().size() == 1 && adapters.clients.table().windows().size() == 1; }));
    EXPECT_EQ(adapters.clients.table().windows().front(), stays->window());
}

TEST_F(X11ClientsTest, a_client_that_is_killed_is_forgotten)
{
    auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    const xcb_window_t window = client->window();
    ASSERT_TRUE(knows(window));
    client.reset(); // its connection closes
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.clients.table().find(window) == nullptr; }));
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.frontmost() == ProcessID::none; }));
}

TEST_F(X11ClientsTest, a_window_that_gets_the_number_of_another_is_a_new_one)
{
    auto first = session.makeClient({.className = "First"});
    ASSERT_TRUE(first->show());
    const xcb_window_t number = first->window();
    ASSERT_TRUE(knows(number));
    first.reset();
    ASSERT_TRUE(session.observer().waitUntil([&] { return session.observer().clientList().empty(); }));
    // Meanwhile the adapters' loop has not turned.
    const auto second = session.makeClient({.className = "Second"});
    ASSERT_EQ(second->window(), number) << "the server gives the connection's numbers out again";
    ASSERT_TRUE(second->showFocused());
    EXPECT_TRUE(
        adapters.waitUntil([&] { return adapters.workspace.bundleIdentifier(ProcessID{getpid()}) == "Second"; }));
    second->connection().setText(number, "_GTK_APPLICATION_ID", "org.example.Heard");
    second->connection().synchronize();
    EXPECT_TRUE(adapters.waitUntil(
        [&] { return adapters.workspace.bundleIdentifier(ProcessID{getpid()}) == "org.example.Heard"; }));
}

TEST_F(X11ClientsTest, a_frame_that_moves_is_followed_without_asking_the_server)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->showFocused());
    ASSERT_TRUE(knows(client->window()));
    adapters.settle();
    const auto requests = [&] { return xcb_no_operation(adapters.connection->raw()).sequence; };
    const auto before = requests();
    ASSERT_TRUE(client->moveTo(500, 420));
    ASSERT_TRUE(adapters.waitUntil(
        [&] { return adapters.listedBounds(client->window()) == pointsOf(client->visibleFrame()); }));
    EXPECT_EQ(requests() - before, 1U) << "nothing but the counting itself was sent";
}

class BrokenLists : public testing::Test {
protected:
    void list(const char* property, const std::vector<std::uint32_t>& windows)
    {
        other.setValues(other.root(), property, XCB_ATOM_WINDOW, windows);
        other.synchronize();
        adapters.settle();
    }

    X11Session session{WindowManager::none};
    TestConnection& other = session.observer();
    DesktopAdapters adapters{session.display()};
};

TEST_F(BrokenLists, windows_that_do_not_exist_are_left_out)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->show());
    list("_NET_CLIENT_LIST_STACKING", {0, 0xFFFFFFFF, client->window(), 0x1234567, client->window(), other.root()});
    EXPECT_THAT(adapters.listedWindows(), testing::ElementsAre(client->window()));
    EXPECT_EQ(adapters.listedBounds(client->window()), pointsOf(client->content()));
}

TEST_F(BrokenLists, listing_the_root_does_not_deafen_us)
{
    list("_NET_CLIENT_LIST_STACKING", {other.root()});
    const auto client = session.makeClient();
    ASSERT_TRUE(client->show());
    list("_NET_CLIENT_LIST_STACKING", {client->window()});
    EXPECT_THAT(adapters.listedWindows(), testing::ElementsAre(client->window()));
}

TEST_F(BrokenLists, without_a_stacking_list_the_plain_one_serves)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->show());
    list("_NET_CLIENT_LIST", {client->window()});
    EXPECT_THAT(adapters.listedWindows(), testing::ElementsAre(client->window()));
    EXPECT_EQ(adapters
                  .attributeOf(std::make_shared<X11AccessibilityElement>(X11AccessibilityElement::Kind::window,
                                                                         ProcessID{1}, client->window()),
                               "AXCloseButton")
                  .error,
              AXError::failure)
        << "no property has its decoration";
}

TEST_F(BrokenLists, a_window_of_our_own_connection_keeps_its_events)
{
    xcb_connection_t* own = adapters.connection->raw();
    const xcb_window_t overlay = xcb_generate_id(own);
    const std::uint32_t events = XCB_EVENT_MASK_EXPOSURE;
    xcb_create_window(own, XCB_COPY_FROM_PARENT, overlay, adapters.connection->root(), 0, 0, 10, 10, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    list("_NET_CLIENT_LIST_STACKING", {overlay});
    EXPECT_TRUE(adapters.listedWindows().empty());
    const XcbReply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(own, xcb_get_window_attributes(own, overlay), nullptr));
    ASSERT_TRUE(attributes);
    EXPECT_EQ(attributes->your_event_mask, events);
}

TEST(X11Clients, a_server_that_dies_is_survived)
{
    X11Session session(WindowManager::none);
    DesktopAdapters adapters(session.display());
    bool isLost = false;
    const auto subscription = adapters.connection->onLost([&] { isLost = true; });
    session.server().kill();
    EXPECT_TRUE(adapters.waitUntil([&] { return isLost; }));
    adapters.loop.turn(Seconds(0));
    EXPECT_EQ(adapters.frontmost(), ProcessID::none);
    EXPECT_TRUE(adapters.listedWindows().empty());
}

TEST_F(BrokenLists, a_listed_window_that_is_replaced_by_one_with_its_number_is_read_again)
{
    const auto client = session.makeClient();
    ASSERT_TRUE(client->show());
    list("_NET_CLIENT_LIST_STACKING", {client->window()});
    ASSERT_THAT(adapters.listedWindows(), testing::ElementsAre(client->window()));
    xcb_connection_t* raw = client->connection().raw();
    xcb_destroy_window(raw, client->window());
    xcb_create_window(raw, XCB_COPY_FROM_PARENT, client->window(), other.root(), 5, 6, 70, 80, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(raw, client->window());
    client->connection().synchronize();
    adapters.settle();
    EXPECT_EQ(adapters.listedBounds(client->window()), (Rect{5, 6, 70, 80}));
    EXPECT_THAT(adapters.listedWindows(), testing::ElementsAre(client->window()));
}

TEST_F(BrokenLists, a_window_in_too_many_others_is_left_out)
{
    constexpr int kMany = 20;
    xcb_window_t innermost = other.root();
    for (int depth = 0; depth < kMany; ++depth) {
        const xcb_window_t parent = std::exchange(innermost, xcb_generate_id(other.raw()));
        xcb_create_window(other.raw(), XCB_COPY_FROM_PARENT, innermost, parent, 0, 0, 50, 50, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_map_window(other.raw(), innermost);
    }
    list("_NET_CLIENT_LIST_STACKING", {innermost});
    EXPECT_TRUE(adapters.listedWindows().empty());
    EXPECT_EQ(adapters.clients.table().find(innermost), nullptr);
}

} // namespace
} // namespace haloric
