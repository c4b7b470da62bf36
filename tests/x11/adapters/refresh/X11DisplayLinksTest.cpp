#include "hosts/x11/refresh/X11DisplayLinks.h"

#include "x11/adapters/DesktopAdapters.h"

#include <xcb/present.h>

namespace haloric {
namespace {

struct X11DisplayLinksTest : testing::Test {
    X11Session session{WindowManager::none};
    DesktopAdapters adapters{session.display()};
    X11DisplayLinks& links = adapters.displayLinks;
    int ticks = 0;

    std::unique_ptr<ScreenDisplayLink> makeLink()
    {
        auto link = links.makeScreenLink(adapters.screens.all().front(), [this] { ++ticks; });
        link->setPreferredFrameRateRange({60, 60, 60});
        return link;
    }
};

TEST_F(X11DisplayLinksTest, a_link_ticks_with_the_refresh)
{
    ASSERT_TRUE(links.followRefresh());
    const auto link = makeLink();
    adapters.settle();
    EXPECT_EQ(ticks, 0); // not on the loop yet
    const Seconds start = adapters.loop.systemUptime();
    link->addToMainRunLoop();
    ASSERT_TRUE(adapters.waitUntil([&] { return ticks >= 30; }));
    const double perSecond = ticks / (adapters.loop.systemUptime() - start).count();
    EXPECT_LT(perSecond, 90); // the server counts sixty; a busy machine may miss some
}

TEST_F(X11DisplayLinksTest, an_invalidated_link_sends_no_more_requests)
{
    const auto link = makeLink();
    link->addToMainRunLoop();
    ASSERT_TRUE(adapters.waitUntil([&] { return ticks >= 2; }));
    link->invalidate();
    int completions = 0;
    const auto subscription =
        adapters.connection->onGenericEvent(&xcb_present_id, [&](const xcb_generic_event_t&) { ++completions; });
    const int before = ticks;
    const auto second = makeLink(); // the refreshes of this time are reported to another link
    second->addToMainRunLoop();
    ASSERT_TRUE(adapters.waitUntil([&] { return ticks >= before + 5; }));
    EXPECT_LE(completions, ticks - before + 1); // at most one was under way
}

TEST_F(X11DisplayLinksTest, two_links_tick_independently)
{
    int other = 0;
    const auto first = makeLink();
    const auto second = links.makeScreenLink(adapters.screens.all().front(), [&] { ++other; });
    first->addToMainRunLoop();
    second->addToMainRunLoop();
    ASSERT_TRUE(adapters.waitUntil([&] { return ticks >= 10 && other >= 10; }));
    EXPECT_LE(std::abs(ticks - other), 3);
}

TEST_F(X11DisplayLinksTest, a_tick_may_end_its_link)
{
    std::unique_ptr<ScreenDisplayLink> link;
    link = links.makeScreenLink(adapters.screens.all().front(), [&] {
        ++ticks;
        link.reset();
    });
    link->addToMainRunLoop();
    ASSERT_TRUE(adapters.waitUntil([&] { return ticks == 1; }));
    adapters.settle();
    EXPECT_EQ(ticks, 1);
}

TEST_F(X11DisplayLinksTest, without_refreshes_a_timer_takes_over)
{
    const auto link = makeLink();
    link->addToMainRunLoop();
    ASSERT_TRUE(adapters.waitUntil([&] { return ticks >= 2; }));
    // The server destroys the windows of the clock, and with them its requests.
    const auto children = session.observer().rootChildren();
    for (const RootChild& child : children)
        xcb_destroy_window(session.observer().raw(), child.window);
    session.observer().synchronize();
    const int before = ticks;
    EXPECT_TRUE(adapters.waitUntil([&] { return ticks >= before + 20; }));
}

TEST_F(X11DisplayLinksTest, refreshes_that_the_link_did_not_ask_for_do_not_count)
{
    constexpr std::uint32_t kForeignSerial = 0xFFFFFF;
    const auto isForeign = [](const xcb_generic_event_t& event) {
        return eventAs<xcb_present_complete_notify_event_t>(event).serial == kForeignSerial;
    };
    const auto link = makeLink();
    std::optional<int> before;
    std::optional<int> after;
    const auto first = adapters.connection->onGenericEvent(&xcb_present_id, [&](const xcb_generic_event_t& event) {
        if (isForeign(event))
            before = ticks;
    });
    link->addToMainRunLoop();
    const auto last = adapters.connection->onGenericEvent(&xcb_present_id, [&](const xcb_generic_event_t& event) {
        if (isForeign(event))
            after = ticks;
    });
    ASSERT_TRUE(adapters.waitUntil([&] { return ticks >= 2; }));
    for (const RootChild& child : session.observer().rootChildren()) {
        if (!child.isMapped && child.process == getpid())
            xcb_present_notify_msc(adapters.connection->raw(), child.window, kForeignSerial, 0, 1, 0);
    }
    ASSERT_TRUE(adapters.waitUntil([&] { return after.has_value(); }));
    EXPECT_EQ(before, after);
}

TEST_F(X11DisplayLinksTest, a_tick_may_replace_its_link)
{
    const std::string text(100, 'x'); // in the memory of the tick, which the replacement must not free
    std::unique_ptr<ScreenDisplayLink> link;
    link = links.makeScreenLink(adapters.screens.all().front(), [this, text, &link] {
        link = makeLink();
        link->addToMainRunLoop();
        EXPECT_EQ(text, std::string(100, 'x'));
    });
    link->addToMainRunLoop();
    EXPECT_TRUE(adapters.waitUntil([&] { return ticks >= 2; }));
}

} // namespace
} // namespace haloric
