#include "fakes/FakeAccessibility.h"
#include "tracking/AXFocusWorker.h"

#include <cmath>
#include <memory>

namespace haloric {
namespace {

using TitleBar = FocusState::TitleBar;

class AXTitleBarTest : public testing::Test {
protected:
    static constexpr ProcessID kPid{7};
    static constexpr WindowNumber kNumber{42};

    AXTitleBarTest()
    {
        for (const auto& [pid, app] : {std::pair(kPid, app7), std::pair(ProcessID{8}, app8)}) {
            accessibility.applications[pid] = app;
            app->set("AXFocusedWindow", AXElement(window));
        }
        window->set("AXRole", std::string("AXWindow"));
        window->set("AXPosition", Point{100, 200});
        window->set("AXCloseButton", AXElement(button));
        window->set(kNumber);
        button->set("AXSize", Size{14, 16});
        placeCentre(14);
    }

    // Puts the close button's vertical centre so many points below the window's top edge.
    void placeCentre(double distance) { button->set("AXPosition", Point{108, 200 + distance - 8}); }

    TitleBar measure() { return worker.measureTitleBar(window); }

    TitleBar queried(std::uint64_t revision, ProcessID pid = kPid)
    {
        return std::get<AXFocusWorker::Snapshot>(worker.query(pid, revision)).titleBar;
    }

    FakeAccessibility accessibility;
    FakeAXElementRef app7 = std::make_shared<FakeAXElement>();
    FakeAXElementRef app8 = std::make_shared<FakeAXElement>();
    FakeAXElementRef window = std::make_shared<FakeAXElement>();
    FakeAXElementRef button = std::make_shared<FakeAXElement>();
    AXFocusWorker worker{accessibility};
};

TEST_F(AXTitleBarTest, the_height_is_twice_the_distance_to_the_close_buttons_centre)
{
    EXPECT_EQ(measure(), TitleBar::height(28));
    placeCentre(25);
    EXPECT_EQ(measure(), TitleBar::height(50));
}

TEST_F(AXTitleBarTest, numbers_that_are_not_finite_leave_the_height_unknown)
{
    for (const double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        for (const Point& position : {Point{bad, 206}, Point{108, bad}}) {
            button->set("AXPosition", position);
            EXPECT_EQ(measure(), TitleBar::unknown()) << bad;
        }
        placeCentre(14);
        for (const Size& size : {Size{bad, 16}, Size{14, bad}}) {
            button->set("AXSize", size);
            EXPECT_EQ(measure(), TitleBar::unknown()) << bad;
        }
        button->set("AXSize", Size{14, 16});
        window->set("AXPosition", Point{100, bad});
        EXPECT_EQ(measure(), TitleBar::unknown()) << bad;
        window->set("AXPosition", Point{100, 200});
    }
}

TEST_F(AXTitleBarTest, the_height_lies_between_20_and_60_points)
{
    placeCentre(5);
    EXPECT_EQ(measure(), TitleBar::height(20));
    placeCentre(10);
    EXPECT_EQ(measure(), TitleBar::height(20));
    placeCentre(30);
    EXPECT_EQ(measure(), TitleBar::height(60));
    placeCentre(40);
    EXPECT_EQ(measure(), TitleBar::height(60));
}

TEST_F(AXTitleBarTest, a_close_button_level_with_or_above_the_top_edge_means_no_title_bar)
{
    placeCentre(0);
    EXPECT_EQ(measure(), TitleBar::none());
    placeCentre(-3);
    EXPECT_EQ(measure(), TitleBar::none());
}

TEST_F(AXTitleBarTest, a_window_without_a_close_button_has_no_title_bar)
{
    window->fail("AXCloseButton", AXError::noValue);
    EXPECT_EQ(measure(), TitleBar::none());
    window->fail("AXCloseButton", AXError::attributeUnsupported);
    EXPECT_EQ(measure(), TitleBar::none());
}

TEST_F(AXTitleBarTest, a_close_button_that_cannot_be_read_leaves_the_height_unknown)
{
    window->fail("AXCloseButton", AXError::cannotComplete);
    EXPECT_EQ(measure(), TitleBar::unknown());
    window->set("AXCloseButton", std::monostate{});
    EXPECT_EQ(measure(), TitleBar::unknown());
    window->set("AXCloseButton", std::string("not an element"));
    EXPECT_EQ(measure(), TitleBar::unknown());
}

TEST_F(AXTitleBarTest, a_missing_position_or_size_leaves_the_height_unknown)
{
    button->fail("AXPosition", AXError::cannotComplete);
    EXPECT_EQ(measure(), TitleBar::unknown());
    placeCentre(14);
    button->set("AXSize", AXOtherValue{});
    EXPECT_EQ(measure(), TitleBar::unknown());
    button->set("AXSize", Size{14, 16});
    window->set("AXPosition", std::monostate{});
    EXPECT_EQ(measure(), TitleBar::unknown());
}

TEST_F(AXTitleBarTest, it_is_measured_once_a_window_and_revision)
{
    EXPECT_EQ(queried(0), TitleBar::height(28));
    placeCentre(20);
    EXPECT_EQ(queried(0), TitleBar::height(28));
    EXPECT_EQ(accessibility.count("AXCloseButton"), 1U);

    EXPECT_EQ(queried(1), TitleBar::height(40)) << "another revision";
    window->set(WindowNumber{43});
    placeCentre(25);
    EXPECT_EQ(queried(1), TitleBar::height(50)) << "another window";
}

TEST_F(AXTitleBarTest, a_window_without_a_title_bar_is_not_measured_again)
{
    window->fail("AXCloseButton", AXError::noValue);
    EXPECT_EQ(queried(0), TitleBar::none());
    window->set("AXCloseButton", AXElement(button));
    EXPECT_EQ(queried(0), TitleBar::none());
}

TEST_F(AXTitleBarTest, an_unknown_height_is_measured_again_on_the_next_query)
{
    window->fail("AXCloseButton", AXError::cannotComplete);
    EXPECT_EQ(queried(0), TitleBar::unknown());
    window->set("AXCloseButton", AXElement(button));
    EXPECT_EQ(queried(0), TitleBar::height(28));
}

TEST_F(AXTitleBarTest, another_process_discards_the_measurement_even_if_the_identities_coincide)
{
    EXPECT_EQ(queried(0), TitleBar::height(28));
    placeCentre(20);
    EXPECT_EQ(queried(0, ProcessID{8}), TitleBar::height(40));
}

TEST_F(AXTitleBarTest, a_reset_discards_the_measurement)
{
    EXPECT_EQ(queried(0), TitleBar::height(28));
    placeCentre(20);
    worker.reset();
    EXPECT_EQ(queried(0), TitleBar::height(40));
}

} // namespace
} // namespace haloric
