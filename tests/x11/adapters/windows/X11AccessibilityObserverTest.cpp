#include "hosts/linux/loop/LinuxSerialQueues.h"
#include "x11/adapters/AccessibilityAdapters.h"

namespace haloric {
namespace {

using X11AccessibilityObserverTest = AccessibilityAdapters;

TEST_P(X11AccessibilityObserverTest, minimising_and_restoring_are_seen_and_reported)
{
    const auto client = session.makeClient();
    const auto other = session.makeClient({.content = {800, 600, 300, 200}});
    ASSERT_TRUE(other->show());
    const AXElement element = focus(*client);
    observe(kSelf);
    ASSERT_TRUE(client->minimise());
    EXPECT_TRUE(hears("AXWindowMiniaturized"));
    EXPECT_EQ(adapters.valueOf<bool>(element, "AXMinimized"), true);
    EXPECT_TRUE(adapters.waitUntil([&] {
        const auto listed = adapters.listedWindows();
        return std::ranges::find(listed, client->window()) == listed.end();
    }));
    ASSERT_TRUE(client->focus());
    EXPECT_TRUE(hears("AXWindowDeminiaturized"));
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.valueOf<bool>(element, "AXMinimized") == false; }));
}

TEST_P(X11AccessibilityObserverTest, moves_and_resizes_are_reported)
{
    const auto client = session.makeClient();
    focus(*client);
    observe(kSelf);
    adapters.settle();
    heard.clear();
    ASSERT_TRUE(client->moveTo(350, 320));
    EXPECT_TRUE(hears("AXWindowMoved"));
    ASSERT_TRUE(client->resizeTo(500, 300));
    EXPECT_TRUE(hears("AXWindowResized"));
}

TEST_P(X11AccessibilityObserverTest, a_focus_change_within_the_application_is_reported_once)
{
    const auto one = session.makeClient();
    const auto other = session.makeClient({.content = {800, 600, 300, 200}});
    ASSERT_TRUE(adapters.appear(*other));
    ASSERT_TRUE(adapters.appear(*one));
    observe(kSelf);
    ASSERT_TRUE(other->focus());
    EXPECT_TRUE(hears("AXFocusedWindowChanged"));
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.focusedWindow() == other->window(); }));
    adapters.settle();
    EXPECT_EQ(std::ranges::count(heard, "AXFocusedWindowChanged"), 1);
    EXPECT_EQ(std::ranges::count(heard, "AXMainWindowChanged"), 0);
}

TEST_P(X11AccessibilityObserverTest, a_focus_change_before_the_installation_is_reported_after_it)
{
    const auto one = session.makeClient();
    const auto other = session.makeClient({.content = {800, 600, 300, 200}});
    makeObserverOvertakenByFocus(*one, *other);
    EXPECT_TRUE(heard.empty()) << "not within the installation";
    EXPECT_TRUE(hears("AXFocusedWindowChanged"));
    EXPECT_EQ(std::ranges::count(heard, "AXFocusedWindowChanged"), 1);
}

TEST_P(X11AccessibilityObserverTest, what_changed_before_the_installation_is_reported_after_it)
{
    const auto client = session.makeClient();
    const auto other = session.makeClient({.content = {800, 600, 300, 200}});
    focus(*client);
    makeObserver(kSelf);
    ASSERT_TRUE(other->show());
    ASSERT_TRUE(client->moveTo(350, 320));
    markAsDrawingItsTitleBar(*client);
    ASSERT_TRUE(adapters.waitUntil([&] {
        const X11Client* known = adapters.clients.table().find(client->window());
        return known->decoration() == X11Decoration::client && adapters.clients.table().find(other->window()) &&
               adapters.listedBounds(client->window()) == pointsOf(client->visibleFrame());
    }));
    EXPECT_TRUE(heard.empty());
    observer->addToMainRunLoop();
    EXPECT_TRUE(heard.empty()) << "not within the installation";
    adapters.settle();
    for (const char* name : {"AXWindowCreated", "AXWindowMoved", "AXWindowResized"})
        EXPECT_EQ(std::ranges::count(heard, name), 1) << name;
}

TEST_P(X11AccessibilityObserverTest, a_title_bar_that_changes_is_reported_as_a_resize)
{
    const auto client = session.makeClient();
    focus(*client);
    observe(kSelf);
    adapters.settle();
    heard.clear();
    const auto frame = adapters.listedBounds(client->window());
    markAsDrawingItsTitleBar(*client);
    EXPECT_TRUE(hears("AXWindowResized"));
    if (GetParam() != WindowManager::metacity) { // that one takes its own title bar away
        EXPECT_EQ(adapters.listedBounds(client->window()), frame);
    }
}

TEST_P(X11AccessibilityObserverTest, hiding_and_showing_an_application_are_reported)
{
    const auto client = session.makeClient({.application = TestClient::Application::ownOne});
    focus(*client);
    observe(adapters.frontmost());
    ASSERT_TRUE(client->minimise());
    EXPECT_TRUE(hears("AXApplicationHidden"));
    EXPECT_EQ(std::ranges::count(heard, "AXApplicationShown"), 0);
    ASSERT_TRUE(client->focus());
    EXPECT_TRUE(hears("AXApplicationShown"));
    EXPECT_EQ(std::ranges::count(heard, "AXApplicationHidden"), 1);
}

TEST_P(X11AccessibilityObserverTest, an_observer_that_was_taken_off_at_once_receives_no_earlier_focus_change)
{
    const auto one = session.makeClient();
    const auto other = session.makeClient({.content = {800, 600, 300, 200}});
    makeObserverOvertakenByFocus(*one, *other);
    observer->removeFromMainRunLoop();
    adapters.settle();
    EXPECT_TRUE(heard.empty());
}

TEST_P(X11AccessibilityObserverTest, windows_that_come_and_go_are_reported)
{
    const auto one = session.makeClient();
    focus(*one);
    observe(kSelf);
    auto other = session.makeClient({.content = {800, 600, 300, 200}});
    ASSERT_TRUE(other->show());
    EXPECT_TRUE(hears("AXWindowCreated"));
    ASSERT_TRUE(other->destroy());
    EXPECT_TRUE(hears("AXUIElementDestroyed"));
}

TEST_P(X11AccessibilityObserverTest, an_observer_off_the_run_loop_receives_nothing)
{
    const auto client = session.makeClient();
    focus(*client);
    observe(kSelf);
    observer->removeFromMainRunLoop();
    heard.clear();
    ASSERT_TRUE(client->moveTo(400, 350));
    ASSERT_TRUE(adapters.waitUntil(
        [&] { return adapters.listedBounds(client->window()) == pointsOf(client->visibleFrame()); }));
    EXPECT_TRUE(heard.empty());
}

TEST_P(X11AccessibilityObserverTest, an_observer_of_another_process_receives_nothing)
{
    const auto client = session.makeClient();
    focus(*client);
    observe(ProcessID{1});
    ASSERT_TRUE(client->moveTo(400, 350));
    ASSERT_TRUE(adapters.waitUntil(
        [&] { return adapters.listedBounds(client->window()) == pointsOf(client->visibleFrame()); }));
    EXPECT_TRUE(heard.empty());
}

TEST_P(X11AccessibilityObserverTest, an_observer_may_be_released_while_it_delivers)
{
    const auto client = session.makeClient();
    focus(*client);
    int calls = 0;
    observer = adapters.accessibility.createObserver(kSelf, [&](std::string_view) {
        ++calls;
        observer->removeFromMainRunLoop();
        observer.reset();
    });
    const AXElement application = adapters.accessibility.createApplicationElement(kSelf);
    for (const char* name : kNames)
        observer->addNotification(application, name);
    observer->addToMainRunLoop();
    client->requestContent({400, 350, 500, 450}); // moves and resizes: two notifications, one of which is heard
    ASSERT_TRUE(adapters.waitUntil([&] { return calls > 0; }));
    ASSERT_TRUE(adapters.waitUntil(
        [&] { return adapters.listedBounds(client->window()) == pointsOf(client->visibleFrame()); }));
    EXPECT_EQ(calls, 1);
}

TEST_P(X11AccessibilityObserverTest, a_query_that_follows_a_notification_reads_what_was_reported)
{
    const auto client = session.makeClient();
    const AXElement element = focus(*client);
    const auto queue = LinuxSerialQueues(adapters.loop).make("", QualityOfService::userInitiated);
    std::optional<Point> reported; // in the callback
    std::optional<Point> read;     // in the block that it has submitted
    observer = adapters.accessibility.createObserver(kSelf, [&](std::string_view) {
        reported = adapters.valueOf<Point>(element, "AXPosition");
        queue->async([&] { read = adapters.valueOf<Point>(element, "AXPosition"); });
        EXPECT_NE(read, reported) << "not within the submission";
    });
    observer->addNotification(adapters.accessibility.createApplicationElement(kSelf), "AXWindowMoved");
    observer->addToMainRunLoop();
    ASSERT_TRUE(client->moveTo(350, 320));
    EXPECT_TRUE(adapters.waitUntil([&] { return read == pointsOf(client->visibleFrame()).origin(); }));
    EXPECT_EQ(read, reported);
}

INSTANTIATE_TEST_SUITE_P(Under, X11AccessibilityObserverTest,
                         testing::Values(WindowManager::openbox, WindowManager::xfwm4, WindowManager::metacity),
                         nameOfParameter);

} // namespace
} // namespace haloric
