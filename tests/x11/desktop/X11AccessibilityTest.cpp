#include "x11/desktop/DesktopAdapters.h"

#include <array>
#include <atomic>
#include <thread>

#include <unistd.h>

namespace haloric {
namespace {

constexpr std::array kNames{"AXFocusedWindowChanged", "AXMainWindowChanged",      "AXWindowMoved",
                            "AXWindowResized",        "AXWindowMiniaturized",     "AXWindowDeminiaturized",
                            "AXWindowCreated",        "AXUIElementDestroyed",     "AXApplicationHidden",
                            "AXApplicationShown",     "AXFocusedUIElementChanged"};

const ProcessID kSelf{getpid()}; // all test windows belong to this process

class X11AccessibilityTest : public testing::TestWithParam<WindowManager> {
protected:
    AXElement focus(TestClient& client)
    {
        EXPECT_TRUE(client.showFocused());
        EXPECT_TRUE(adapters.waitUntil([&] { return adapters.focusedWindow() == client.window(); }));
        return adapters.focusedElement(kSelf);
    }

    void observe(ProcessID pid)
    {
        makeObserver(pid);
        observer->addToMainRunLoop();
    }

    void makeObserver(ProcessID pid)
    {
        observer =
            adapters.accessibility.createObserver(pid, [this](std::string_view name) { heard.emplace_back(name); });
        const AXElement application = adapters.accessibility.createApplicationElement(pid);
        for (const char* name : kNames)
            EXPECT_EQ(observer->addNotification(application, name), AXError::success);
    }

    // An observer made before, and installed after, the focus went to another window of its application.
    void makeObserverOvertakenByFocus(TestClient& first, TestClient& second)
    {
        ASSERT_TRUE(adapters.appear(second));
        ASSERT_TRUE(adapters.appear(first));
        makeObserver(kSelf);
        ASSERT_TRUE(second.focus());
        ASSERT_TRUE(adapters.waitUntil([&] { return adapters.focusedWindow() == second.window(); }));
        for (int turn = 0; turn < 5; ++turn)
            adapters.settle(); // nothing more comes from the server
        ASSERT_TRUE(heard.empty());
        observer->addToMainRunLoop();
    }

    bool hears(std::string_view name)
    {
        return adapters.waitUntil([&] { return std::ranges::find(heard, name) != heard.end(); });
    }

    X11Session session{GetParam()};
    DesktopAdapters adapters{session.display()};
    std::vector<std::string> heard;
    std::unique_ptr<AXObserver> observer;
};

TEST_P(X11AccessibilityTest, the_focused_window_tells_what_it_is)
{
    const auto client = session.makeClient();
    const AXElement element = focus(*client);
    EXPECT_EQ(adapters.valueOf<std::string>(element, "AXRole"), "AXWindow");
    EXPECT_EQ(adapters.valueOf<bool>(element, "AXMinimized"), false);
    EXPECT_TRUE(adapters.waitUntil([&] {
        const Rect frame = pointsOf(client->visibleFrame());
        return adapters.valueOf<Point>(element, "AXPosition") == frame.origin() &&
               adapters.valueOf<Size>(element, "AXSize") == frame.size();
    }));
    EXPECT_EQ(adapters.attributeOf(element, "AXSubrole").error, AXError::attributeUnsupported);
}

TEST_P(X11AccessibilityTest, equal_elements_have_equal_hashes)
{
    const auto client = session.makeClient();
    const AXElement element = focus(*client);
    EXPECT_EQ(adapters.accessibility.hash(element), adapters.accessibility.hash(adapters.focusedElement(kSelf)));
    EXPECT_NE(adapters.accessibility.hash(element),
              adapters.accessibility.hash(adapters.accessibility.createApplicationElement(kSelf)));
    EXPECT_EQ(adapters.accessibility.hash(nullptr), 0U);
}

TEST_P(X11AccessibilityTest, the_close_button_tells_the_height_of_the_title_bar)
{
    const auto client = session.makeClient();
    const AXElement window = focus(*client);
    const int top = client->frameExtents()[2];
    ASSERT_GT(top, 0);
    const auto measure = [&]() -> double {
        const auto button = adapters.valueOf<AXElement>(window, "AXCloseButton");
        if (!button)
            return 0;
        const auto position = adapters.valueOf<Point>(*button, "AXPosition");
        const auto size = adapters.valueOf<Size>(*button, "AXSize");
        return 2 * (position->y + size->height / 2 - adapters.valueOf<Point>(window, "AXPosition")->y);
    };
    EXPECT_TRUE(adapters.waitUntil([&] { return measure() == top; })) << measure();
}

TEST_P(X11AccessibilityTest, a_window_without_decoration_has_no_close_button)
{
    const auto client = session.makeClient({.decoration = TestClient::Decoration::none});
    const AXElement window = focus(*client);
    EXPECT_EQ(client->frameExtents()[2], 0);
    EXPECT_TRUE(
        adapters.waitUntil([&] { return adapters.attributeOf(window, "AXCloseButton").error == AXError::noValue; }));
}

TEST_P(X11AccessibilityTest, a_window_that_decorates_itself_cannot_tell_its_title_bar)
{
    const auto client = session.makeClient(
        {.decoration = TestClient::Decoration::none, .gtkFrameExtents = std::array<std::uint32_t, 4>{26, 26, 23, 29}});
    const AXElement window = focus(*client);
    EXPECT_TRUE(adapters.waitUntil([&] {
        const AXError error = adapters.attributeOf(window, "AXCloseButton").error;
        return error == AXError::failure;
    }));
}

TEST_P(X11AccessibilityTest, only_windows_that_people_work_in_have_the_role_of_a_window)
{
    std::vector<std::unique_ptr<TestClient>> made;
    const auto roleOf = [&](const char* type) {
        made.push_back(session.makeClient({.type = type}));
        const auto& client = made.back();
        EXPECT_TRUE(client->show());
        EXPECT_TRUE(adapters.waitUntil([&] { return adapters.clients.table().find(client->window()).has_value(); }));
        const X11AXElement element(X11AXElement::Kind::window, kSelf, client->window());
        return adapters.valueOf<std::string>(std::make_shared<X11AXElement>(element), "AXRole").value_or("");
    };
    EXPECT_EQ(roleOf("_NET_WM_WINDOW_TYPE_NORMAL"), "AXWindow");
    EXPECT_EQ(roleOf("_NET_WM_WINDOW_TYPE_DIALOG"), "AXWindow");
    EXPECT_EQ(roleOf("_NET_WM_WINDOW_TYPE_UTILITY"), "AXWindow");
    EXPECT_EQ(roleOf("_NET_WM_WINDOW_TYPE_DOCK"), "AXUnknown");
    EXPECT_EQ(roleOf("_NET_WM_WINDOW_TYPE_SPLASH"), "AXUnknown");
}

TEST_P(X11AccessibilityTest, minimising_and_restoring_are_seen_and_told)
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

TEST_P(X11AccessibilityTest, moves_and_resizes_are_told)
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

TEST_P(X11AccessibilityTest, a_focus_change_within_the_application_is_told)
{
    const auto one = session.makeClient();
    const auto other = session.makeClient({.content = {800, 600, 300, 200}});
    ASSERT_TRUE(adapters.appear(*other));
    ASSERT_TRUE(adapters.appear(*one));
    observe(kSelf);
    ASSERT_TRUE(other->focus());
    EXPECT_TRUE(hears("AXFocusedWindowChanged"));
    EXPECT_TRUE(hears("AXMainWindowChanged"));
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.focusedWindow() == other->window(); }));
}

TEST_P(X11AccessibilityTest, a_focus_change_before_the_installation_is_told_after_it)
{
    const auto one = session.makeClient();
    const auto other = session.makeClient({.content = {800, 600, 300, 200}});
    makeObserverOvertakenByFocus(*one, *other);
    EXPECT_TRUE(heard.empty()) << "not within the installation";
    EXPECT_TRUE(hears("AXFocusedWindowChanged"));
    EXPECT_EQ(std::ranges::count(heard, "AXFocusedWindowChanged"), 1);
}

TEST_P(X11AccessibilityTest, an_observer_that_was_taken_off_at_once_is_not_told_of_an_earlier_focus_change)
{
    const auto one = session.makeClient();
    const auto other = session.makeClient({.content = {800, 600, 300, 200}});
    makeObserverOvertakenByFocus(*one, *other);
    observer->removeFromMainRunLoop();
    adapters.settle();
    EXPECT_TRUE(heard.empty());
}

TEST_P(X11AccessibilityTest, windows_that_come_and_go_are_told)
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

TEST_P(X11AccessibilityTest, an_observer_off_the_run_loop_hears_nothing)
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

TEST_P(X11AccessibilityTest, an_observer_of_another_process_hears_nothing)
{
    const auto client = session.makeClient();
    focus(*client);
    observe(ProcessID{1});
    ASSERT_TRUE(client->moveTo(400, 350));
    ASSERT_TRUE(adapters.waitUntil(
        [&] { return adapters.listedBounds(client->window()) == pointsOf(client->visibleFrame()); }));
    EXPECT_TRUE(heard.empty());
}

TEST_P(X11AccessibilityTest, an_observer_may_be_released_while_it_delivers)
{
    const auto client = session.makeClient();
    focus(*client);
    int calls = 0;
    observer = adapters.accessibility.createObserver(kSelf, [&](std::string_view) {
        ++calls;
        observer->removeFromMainRunLoop();
        std::thread([this] { observer.reset(); }).join();
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

TEST_P(X11AccessibilityTest, a_window_that_is_gone_is_an_invalid_element)
{
    const auto client = session.makeClient();
    const AXElement element = focus(*client);
    ASSERT_TRUE(client->destroy());
    EXPECT_TRUE(
        adapters.waitUntil([&] { return adapters.attributeOf(element, "AXRole").error == AXError::invalidElement; }));
}

TEST_P(X11AccessibilityTest, attributes_may_be_read_on_another_thread_while_windows_move)
{
    const auto client = session.makeClient();
    const AXElement element = focus(*client);
    std::atomic<bool> isEnding = false;
    std::atomic<int> reads = 0;
    std::thread queue([&] {
        while (!isEnding) {
            const auto application = adapters.accessibility.createApplicationElement(kSelf);
            if (adapters.valueOf<AXElement>(application, "AXFocusedWindow") &&
                adapters.valueOf<Point>(element, "AXPosition"))
                ++reads;
        }
    });
    for (int step = 0; step < 50; ++step) {
        client->requestContent({300 + step, 250, 600, 400});
        adapters.settle();
    }
    EXPECT_TRUE(adapters.waitUntil([&] { return reads > 0; }));
    isEnding = true;
    queue.join();
}

TEST_P(X11AccessibilityTest, only_the_known_notifications_of_the_application_can_be_asked_for)
{
    const auto made = adapters.accessibility.createObserver(kSelf, [](std::string_view) {});
    const AXElement application = adapters.accessibility.createApplicationElement(kSelf);
    EXPECT_EQ(made->addNotification(application, "AXSomethingElse"), AXError::notificationUnsupported);
    EXPECT_EQ(made->addNotification(nullptr, "AXWindowMoved"), AXError::invalidElement);
    EXPECT_EQ(adapters.accessibility.createObserver(ProcessID::none, {}), nullptr);
    EXPECT_EQ(adapters.accessibility.createApplicationElement(ProcessID::none), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Under, X11AccessibilityTest,
                         testing::Values(WindowManager::openbox, WindowManager::xfwm4, WindowManager::metacity),
                         nameOfParameter);

} // namespace
} // namespace haloric
