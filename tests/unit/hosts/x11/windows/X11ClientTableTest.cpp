#include "hosts/x11/windows/X11ClientTable.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

X11ClientRecord record(xcb_window_t window, ProcessID pid)
{
    X11ClientRecord made;
    made.client.window = window;
    made.client.frame = window + 1000;
    made.client.pid = pid;
    made.client.mapped = true;
    made.client.geometry = {{0, 0, 100, 100}, {0, 0, 100, 100}, std::nullopt, std::nullopt};
    made.names.className = "class" + std::to_string(window);
    return made;
}

class X11ClientTableTest : public testing::Test {
protected:
    static constexpr ProcessID kEditor{10};
    static constexpr ProcessID kShell{20};

    void SetUp() override
    {
        for (const xcb_window_t window : {1U, 2U})
            table.store(record(window, kEditor));
        table.store(record(3, kShell));
        list({1, 2, 3});
        table.takeNotices();
    }

    void list(std::vector<xcb_window_t> bottomToTop) { table.setStacking(bottomToTop); }
    void activate(xcb_window_t window) { table.setState({window, 0, false}); }

    void alter(xcb_window_t window, const std::function<void(X11Client&)>& change) { change(*table.edit(window)); }

    std::vector<xcb_window_t> order() const
    {
        std::vector<xcb_window_t> windows;
        for (const X11Client* client : table.stacking())
            windows.push_back(client->window);
        return windows;
    }

    X11ClientTable table;
};

TEST_F(X11ClientTableTest, windows_are_kept_in_the_order_of_the_list)
{
    EXPECT_THAT(order(), ElementsAre(1U, 2U, 3U));
    list({3, 1, 2});
    EXPECT_THAT(order(), ElementsAre(3U, 1U, 2U));
}

TEST_F(X11ClientTableTest, a_list_that_repeats_windows_or_names_unknown_ones_does_no_harm)
{
    list({3, 99, 1, 3, 1});
    EXPECT_THAT(order(), ElementsAre(3U, 1U));
    EXPECT_NE(table.find(2), nullptr) << "known, though not listed";
}

TEST_F(X11ClientTableTest, processes_are_those_of_listed_windows)
{
    EXPECT_THAT(table.processes(), ElementsAre(kEditor, kShell));
    list({1, 2});
    EXPECT_THAT(table.processes(), ElementsAre(kEditor));
}

TEST_F(X11ClientTableTest, the_main_window_is_the_uppermost_until_one_has_been_active)
{
    EXPECT_EQ(table.mainWindow(kEditor)->window, 2U);
    activate(1);
    activate(3);
    EXPECT_EQ(table.mainWindow(kEditor)->window, 1U);
    EXPECT_EQ(table.names(kEditor)->className, "class1");
    EXPECT_EQ(table.mainWindow(ProcessID{77}), nullptr);
    EXPECT_EQ(table.names(ProcessID{77}), nullptr);
}

TEST_F(X11ClientTableTest, a_process_is_hidden_when_all_its_windows_are)
{
    alter(1, [](X11Client& client) { client.hidden = true; });
    EXPECT_FALSE(table.isHidden(kEditor));
    alter(2, [](X11Client& client) { client.iconic = true; });
    EXPECT_TRUE(table.isHidden(kEditor));
    EXPECT_FALSE(table.isHidden(kShell));
    EXPECT_FALSE(table.isHidden(ProcessID{77}));
}

TEST_F(X11ClientTableTest, showing_the_desktop_hides_everything)
{
    table.setState({3, 0, true});
    EXPECT_TRUE(table.isHidden(kShell));
}

TEST_F(X11ClientTableTest, a_window_that_is_rolled_up_is_not_minimised)
{
    alter(3, [](X11Client& client) {
        client.hidden = true;
        client.shaded = true;
    });
    EXPECT_FALSE(table.isHidden(kShell));
}

TEST_F(X11ClientTableTest, a_frame_that_moves_takes_its_client_along)
{
    const auto configured = table.configureFrame(1002, {30, 40, 100, 100}, 1);
    ASSERT_TRUE(configured);
    EXPECT_EQ(configured->client, 2U);
    EXPECT_FALSE(configured->resized);
    EXPECT_EQ(table.find(2)->visibleFrame(), (PixelRect{30, 40, 100, 100}));
    EXPECT_TRUE(table.configureFrame(1002, {30, 40, 120, 100}, 2)->resized);
    EXPECT_FALSE(table.configureFrame(555, {0, 0, 1, 1}, 3));
}

TEST_F(X11ClientTableTest, an_event_older_than_the_measurement_changes_nothing)
{
    alter(2, [](X11Client& client) { client.measuredAt = 100; });
    EXPECT_FALSE(table.configureFrame(1002, {30, 40, 100, 100}, 99));
    EXPECT_EQ(table.find(2)->visibleFrame(), (PixelRect{0, 0, 100, 100}));
    EXPECT_TRUE(table.configureFrame(1002, {30, 40, 100, 100}, 100));
}

TEST_F(X11ClientTableTest, sequence_numbers_may_wrap_around)
{
    alter(2, [](X11Client& client) { client.measuredAt = 0xFFFFFFF0; });
    EXPECT_TRUE(table.configureFrame(1002, {30, 40, 100, 100}, 5));
}

TEST_F(X11ClientTableTest, changes_are_reported_once)
{
    table.configureFrame(1002, {30, 40, 100, 100}, 1);
    table.store(record(4, kShell));
    table.remove(3);
    EXPECT_THAT(table.takeNotices(), UnorderedElementsAre(X11ClientNotice{kEditor, 2, X11ClientChange::moved},
                                                          X11ClientNotice{kShell, 4, X11ClientChange::appeared},
                                                          X11ClientNotice{kShell, 3, X11ClientChange::vanished}));
    EXPECT_TRUE(table.takeNotices().empty());
}

TEST_F(X11ClientTableTest, a_window_that_vanishes_before_it_was_reported_is_never_reported)
{
    table.store(record(4, kShell));
    table.remove(4);
    EXPECT_TRUE(table.takeNotices().empty());
}

TEST_F(X11ClientTableTest, reading_a_window_again_keeps_its_place_and_history)
{
    activate(1);
    table.store(record(1, kEditor));
    EXPECT_THAT(order(), ElementsAre(1U, 2U, 3U));
    EXPECT_EQ(table.mainWindow(kEditor)->window, 1U);
    EXPECT_TRUE(table.takeNotices().empty());
}

TEST_F(X11ClientTableTest, clients_are_found_by_their_frames)
{
    EXPECT_EQ(table.clientOf(2), 2U);
    EXPECT_EQ(table.clientOf(1002), 2U);
    EXPECT_EQ(table.clientOf(555), XCB_WINDOW_NONE);
}

TEST_F(X11ClientTableTest, the_active_window_may_be_unknown)
{
    activate(99);
    EXPECT_EQ(table.active(), nullptr);
    activate(3);
    EXPECT_EQ(table.active()->window, 3U);
}

TEST_F(X11ClientTableTest, a_frame_that_changes_in_one_direction_is_resized)
{
    const auto isResized = [this](const PixelRect& outer) { return table.configureFrame(1001, outer, 1)->resized; };
    EXPECT_TRUE(isResized({0, 0, 100, 101}));
    EXPECT_TRUE(isResized({0, 0, 101, 101}));
    EXPECT_FALSE(isResized({7, 8, 101, 101}));
}

} // namespace
} // namespace haloric
