#include "hosts/x11/windows/X11WindowInfoSource.h"

namespace haloric {
namespace {

using testing::ElementsAre;

constexpr auto kOrdinary = WindowListOptions::onScreenOnly | WindowListOptions::excludeDesktopElements;

class X11WindowInfoSourceTest : public testing::Test {
protected:
    // Adds a window on top of the others, by default an ordinary one on the current desktop.
    void add(
        xcb_window_t window, const std::function<void(X11Client&)>& alter = [](X11Client&) {})
    {
        X11ClientRecord record;
        record.client.window = window;
        record.client.pid = ProcessID{static_cast<std::int32_t>(window) + 100};
        record.client.mapped = true;
        record.client.desktop = 1;
        record.client.geometry = {{20, 40, 200, 100}, {0, 0, 200, 100}, std::nullopt, std::nullopt};
        alter(record.client);
        table.store(record);
        stacking.push_back(window);
        table.setStacking(stacking);
    }

    std::vector<std::int64_t> numbers(WindowListOptions options = kOrdinary)
    {
        std::vector<std::int64_t> numbers;
        const auto list = source.copyWindowInfo(options, WindowNumber::none);
        for (const WindowInfo& info : *list)
            numbers.push_back(std::get<std::int64_t>(info.number));
        return numbers;
    }

    WindowInfo info(xcb_window_t window)
    {
        return source.copyWindowInfo(WindowListOptions::includingWindow, static_cast<WindowNumber>(window))->at(0);
    }

    X11ClientTable table;
    X11Scale scale{X11Space{2, {10, 20, 1920, 1080}}};
    X11WindowInfoSource source{table, scale};
    std::vector<xcb_window_t> stacking;

    void SetUp() override { table.setState({XCB_WINDOW_NONE, 1, false}); }
};

TEST_F(X11WindowInfoSourceTest, windows_are_listed_front_to_back)
{
    add(1);
    add(2);
    add(3);
    EXPECT_THAT(numbers(), ElementsAre(3, 2, 1));
}

TEST_F(X11WindowInfoSourceTest, a_window_is_described_in_points_of_the_global_space)
{
    add(1, [](X11Client& client) { client.opacity = 0.5; });
    const WindowInfo one = info(1);
    EXPECT_EQ(one.layer, WindowInfoValue(std::int64_t{0}));
    EXPECT_EQ(one.ownerPID, WindowInfoValue(std::int64_t{101}));
    EXPECT_EQ(one.alpha, WindowInfoValue(0.5));
    EXPECT_EQ(one.number, WindowInfoValue(std::int64_t{1}));
    EXPECT_EQ(one.bounds, WindowInfoValue(Rect{5, 10, 100, 50}));
}

TEST_F(X11WindowInfoSourceTest, layers_follow_type_and_state)
{
    add(1, [](X11Client& client) { client.type = X11WindowType::desktop; });
    add(2, [](X11Client& client) { client.type = X11WindowType::dialog; });
    add(3, [](X11Client& client) { client.above = true; });
    add(4, [](X11Client& client) { client.type = X11WindowType::dock; });
    EXPECT_LT(std::get<std::int64_t>(info(1).layer), 0);
    EXPECT_EQ(std::get<std::int64_t>(info(2).layer), 0);
    EXPECT_EQ(std::get<std::int64_t>(info(3).layer), 3);
    EXPECT_EQ(std::get<std::int64_t>(info(4).layer), 20);
}

TEST_F(X11WindowInfoSourceTest, an_active_window_that_is_kept_above_is_an_ordinary_one)
{
    add(1, [](X11Client& client) { client.above = true; });
    add(2, [](X11Client& client) { client.above = true; });
    table.setState({1, 1, false});
    EXPECT_EQ(std::get<std::int64_t>(info(1).layer), 0);
    EXPECT_EQ(std::get<std::int64_t>(info(2).layer), 3);
    table.setState({2, 1, false});
    EXPECT_EQ(std::get<std::int64_t>(info(1).layer), 3);
    EXPECT_EQ(std::get<std::int64_t>(info(2).layer), 0);
}

TEST_F(X11WindowInfoSourceTest, other_types_that_are_kept_above_float_even_when_active)
{
    add(1, [](X11Client& client) {
        client.above = true;
        client.type = X11WindowType::other;
    });
    table.setState({1, 1, false});
    EXPECT_EQ(std::get<std::int64_t>(info(1).layer), 3);
}

TEST_F(X11WindowInfoSourceTest, only_what_is_seen_on_the_current_desktop_is_listed)
{
    add(1, [](X11Client& client) { client.desktop = 0; });
    add(2, [](X11Client& client) { client.hidden = true; });
    add(3, [](X11Client& client) { client.mapped = false; });
    add(4, [](X11Client& client) { client.desktop = X11Client::kEveryDesktop; });
    add(5, [](X11Client& client) {
        client.mapped = false;
        client.shaded = true;
    });
    EXPECT_THAT(numbers(), ElementsAre(5, 4));
}

TEST_F(X11WindowInfoSourceTest, without_the_option_windows_out_of_sight_are_listed_too)
{
    add(1, [](X11Client& client) { client.hidden = true; });
    add(2);
    EXPECT_THAT(numbers(WindowListOptions::excludeDesktopElements), ElementsAre(2, 1));
}

TEST_F(X11WindowInfoSourceTest, the_desktop_window_is_listed_only_on_request)
{
    add(1, [](X11Client& client) { client.type = X11WindowType::desktop; });
    add(2);
    EXPECT_THAT(numbers(), ElementsAre(2));
    EXPECT_THAT(numbers(WindowListOptions::onScreenOnly), ElementsAre(2, 1));
}

TEST_F(X11WindowInfoSourceTest, showing_the_desktop_leaves_no_window_on_screen)
{
    add(1);
    table.setState({XCB_WINDOW_NONE, 1, true});
    EXPECT_THAT(numbers(), ElementsAre());
}

TEST_F(X11WindowInfoSourceTest, one_window_is_given_wherever_it_is)
{
    add(1, [](X11Client& client) { client.desktop = 0; });
    EXPECT_EQ(info(1).number, WindowInfoValue(std::int64_t{1}));
    const auto unknown = source.copyWindowInfo(WindowListOptions::includingWindow, WindowNumber{99});
    ASSERT_TRUE(unknown);
    EXPECT_TRUE(unknown->empty());
}

} // namespace
} // namespace haloric
