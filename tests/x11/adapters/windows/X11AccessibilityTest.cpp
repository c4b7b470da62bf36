#include "x11/adapters/AccessibilityAdapters.h"

namespace haloric {
namespace {

using X11AccessibilityTest = AccessibilityAdapters;

TEST_P(X11AccessibilityTest, the_focused_window_has_its_attributes)
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

TEST_P(X11AccessibilityTest, places_and_sizes_are_points)
{
    adapters.scale.set({2, {100, 50, 1920, 1080}});
    const auto client = session.makeClient();
    const AXElement window = focus(*client);
    const auto button = [&] { return adapters.valueOf<AXElement>(window, "AXCloseButton").value_or(nullptr); };
    EXPECT_TRUE(adapters.waitUntil([&] {
        const ScreenRect frame = client->visibleFrame();
        const double side = client->frameExtents()[2] / 4.0; // half of the title bar
        return adapters.valueOf<Point>(window, "AXPosition") == Point{(frame.x - 100) / 2.0, (frame.y - 50) / 2.0} &&
               adapters.valueOf<Size>(window, "AXSize") == Size{frame.width / 2.0, frame.height / 2.0} && button() &&
               adapters.valueOf<Size>(button(), "AXSize") == Size{side, side} &&
               adapters.valueOf<Point>(button(), "AXPosition") ==
                   Point{(frame.x - 100) / 2.0 + (frame.width / 2.0 - side) / 2, (frame.y - 50) / 2.0 + side / 2};
    }));
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

TEST_P(X11AccessibilityTest, the_height_of_the_title_bar_follows_from_the_close_button)
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

TEST_P(X11AccessibilityTest, only_ordinary_windows_have_the_role_of_a_window)
{
    std::vector<std::unique_ptr<TestClient>> made;
    const auto roleOf = [&](const char* type) {
        made.push_back(session.makeClient({.type = type}));
        const auto& client = made.back();
        EXPECT_TRUE(client->show());
        EXPECT_TRUE(adapters.waitUntil([&] { return adapters.clients.table().find(client->window()) != nullptr; }));
        const X11AccessibilityElement element(X11AccessibilityElement::Kind::window, kSelf, client->window());
        return adapters.valueOf<std::string>(std::make_shared<X11AccessibilityElement>(element), "AXRole").value_or("");
    };
    EXPECT_EQ(roleOf("_NET_WM_WINDOW_TYPE_NORMAL"), "AXWindow");
    EXPECT_EQ(roleOf("_NET_WM_WINDOW_TYPE_DIALOG"), "AXWindow");
    EXPECT_EQ(roleOf("_NET_WM_WINDOW_TYPE_UTILITY"), "AXWindow");
    EXPECT_EQ(roleOf("_NET_WM_WINDOW_TYPE_DOCK"), "AXUnknown");
    EXPECT_EQ(roleOf("_NET_WM_WINDOW_TYPE_SPLASH"), "AXUnknown");
}

TEST_P(X11AccessibilityTest, a_window_that_is_gone_is_an_invalid_element)
{
    const auto client = session.makeClient();
    const AXElement element = focus(*client);
    ASSERT_TRUE(client->destroy());
    EXPECT_TRUE(
        adapters.waitUntil([&] { return adapters.attributeOf(element, "AXRole").error == AXError::invalidElement; }));
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
