#include "tracking/AXFocusWorker.h"

#include "fakes/FakeAccessibility.h"

#include <memory>

namespace haloric {
namespace {

using TitleBar = FocusState::TitleBar;
using Snapshot = AXFocusWorker::Snapshot;
using QueryResult = AXFocusWorker::QueryResult;
using testing::ElementsAre;

const QueryResult kNoWindow = AXFocusWorker::NoWindow{};
const QueryResult kUnavailable = AXFocusWorker::Unavailable{};

class AXFocusWorkerTest : public testing::Test {
protected:
    static constexpr ProcessID kPid{7};
    static constexpr WindowNumber kNumber{42};

    AXFocusWorkerTest()
    {
        accessibility.applications[kPid] = app;
        app->set("AXFocusedWindow", AXElement(window));
        window->set("AXRole", std::string("AXWindow"));
        window->set("AXMinimized", false);
        window->set("AXPosition", Point{100, 200});
        window->set("AXSize", Size{640, 480});
        window->set("AXCloseButton", AXElement(button));
        window->set(kNumber);
        window->hash = 9001;
        button->set("AXSize", Size{14, 16});
        button->set("AXPosition", Point{108, 206});
    }

    QueryResult query(std::uint64_t revision = 0) { return worker.query(kPid, revision); }

    Snapshot focused(std::uint64_t revision = 0)
    {
        const QueryResult result = query(revision);
        EXPECT_TRUE(std::holds_alternative<Snapshot>(result));
        return std::holds_alternative<Snapshot>(result) ? std::get<Snapshot>(result) : Snapshot{};
    }

    FakeAccessibility accessibility;
    FakeAXElementRef app = std::make_shared<FakeAXElement>();
    FakeAXElementRef window = std::make_shared<FakeAXElement>();
    FakeAXElementRef button = std::make_shared<FakeAXElement>();
    AXFocusWorker worker{accessibility};
};

TEST_F(AXFocusWorkerTest, a_numbered_window_is_focused_without_reading_its_place)
{
    EXPECT_EQ(query(), QueryResult(Snapshot{kNumber, identityOf(kNumber), std::nullopt, TitleBar::height(28)}));
    EXPECT_EQ(accessibility.count("AXSize"), 1U) << "the close button's, and not the window's";
}

TEST_F(AXFocusWorkerTest, every_element_that_is_talked_to_gets_the_timeout)
{
    query();
    EXPECT_THAT(accessibility.timeouts,
                ElementsAre(std::pair(AXElement(app), 0.25F), std::pair(AXElement(window), 0.25F),
                            std::pair(AXElement(button), 0.25F)));
}

TEST_F(AXFocusWorkerTest, the_application_element_is_made_once_a_process)
{
    query();
    query();
    EXPECT_EQ(accessibility.count("app 7"), 1U);
    worker.query(ProcessID{8}, 0);
    query();
    EXPECT_EQ(accessibility.count("app 7"), 2U);
}

TEST_F(AXFocusWorkerTest, a_process_without_an_element_has_no_window_and_is_queried_again)
{
    EXPECT_EQ(worker.query(ProcessID{8}, 0), kNoWindow);
    EXPECT_EQ(worker.query(ProcessID{8}, 0), kNoWindow);
    EXPECT_EQ(accessibility.count("app 8"), 2U);
}

TEST_F(AXFocusWorkerTest, the_application_element_belongs_to_the_last_process)
{
    EXPECT_EQ(worker.applicationElement(kPid), nullptr);
    query();
    EXPECT_EQ(worker.applicationElement(kPid), app);
    EXPECT_EQ(worker.applicationElement(ProcessID{8}), nullptr);
    worker.reset();
    EXPECT_EQ(worker.applicationElement(kPid), nullptr);
}

TEST_F(AXFocusWorkerTest, an_application_that_times_out_on_its_focused_window_is_unavailable)
{
    app->fail("AXFocusedWindow", AXError::cannotComplete);
    EXPECT_EQ(query(), kUnavailable);
    EXPECT_EQ(accessibility.count("AXMainWindow"), 0U);
}

TEST_F(AXFocusWorkerTest, the_main_window_stands_in_for_a_focused_window_that_cannot_be_read)
{
    app->set("AXMainWindow", AXElement(window));
    app->fail("AXFocusedWindow", AXError::failure);
    EXPECT_EQ(focused().windowID, kNumber);
    app->fail("AXFocusedWindow", AXError::noValue);
    EXPECT_EQ(focused().windowID, kNumber);
    app->set("AXFocusedWindow", std::monostate{});
    EXPECT_EQ(focused().windowID, kNumber);
}

TEST_F(AXFocusWorkerTest, an_application_that_times_out_on_its_main_window_is_unavailable)
{
    app->fail("AXFocusedWindow", AXError::noValue);
    app->fail("AXMainWindow", AXError::cannotComplete);
    EXPECT_EQ(query(), kUnavailable);
}

TEST_F(AXFocusWorkerTest, an_application_with_neither_window_gives_no_window)
{
    app->fail("AXFocusedWindow", AXError::noValue);
    app->fail("AXMainWindow", AXError::noValue);
    EXPECT_EQ(query(), kNoWindow);
    app->set("AXMainWindow", std::monostate{});
    EXPECT_EQ(query(), kNoWindow);
}

TEST_F(AXFocusWorkerTest, a_focused_window_that_is_not_an_element_gives_no_window)
{
    app->set("AXMainWindow", AXElement(window));
    app->set("AXFocusedWindow", std::string("not an element"));
    EXPECT_EQ(query(), kNoWindow);
    EXPECT_EQ(accessibility.count("AXMainWindow"), 0U) << "there was a value, so nothing stands in for it";
}

TEST_F(AXFocusWorkerTest, the_role_must_be_that_of_a_window)
{
    window->set("AXRole", std::string("AXSheet"));
    EXPECT_EQ(query(), kNoWindow);
    window->set("AXRole", AXOtherValue{});
    EXPECT_EQ(query(), kNoWindow);
    window->set("AXRole", std::monostate{});
    EXPECT_EQ(query(), kNoWindow);
    window->fail("AXRole", AXError::invalidElement);
    EXPECT_EQ(query(), kNoWindow);
    window->fail("AXRole", AXError::cannotComplete);
    EXPECT_EQ(query(), kUnavailable);
}

TEST_F(AXFocusWorkerTest, a_minimised_window_gives_no_window)
{
    window->set("AXMinimized", true);
    EXPECT_EQ(query(), kNoWindow);
    window->fail("AXMinimized", AXError::cannotComplete);
    EXPECT_EQ(query(), kUnavailable);
}

TEST_F(AXFocusWorkerTest, a_window_without_a_minimised_attribute_counts_as_not_minimised)
{
    window->fail("AXMinimized", AXError::attributeUnsupported);
    EXPECT_EQ(focused().windowID, kNumber);
    window->set("AXMinimized", std::monostate{});
    EXPECT_EQ(focused().windowID, kNumber);
}

TEST_F(AXFocusWorkerTest, a_value_returned_with_an_error_is_ignored)
{
    window->attributes["AXMinimized"] = {AXError::failure, true};
    EXPECT_EQ(focused().windowID, kNumber);
    window->attributes["AXRole"].error = AXError::failure;
    EXPECT_EQ(query(), kNoWindow);
}

TEST_F(AXFocusWorkerTest, a_window_without_a_number_has_its_hash_and_its_accessibility_bounds)
{
    const Snapshot expected{WindowNumber::none, WindowIdentity{9001}, Rect{100, 200, 640, 480}, TitleBar::height(28)};
    window->number = {AXError::failure, kNumber};
    EXPECT_EQ(focused(), expected);
    window->number = {AXError::success, WindowNumber::none};
    EXPECT_EQ(focused(), expected);
}

TEST_F(AXFocusWorkerTest, bounds_need_both_a_position_and_a_size)
{
    window->number = {AXError::failure, WindowNumber::none};
    window->fail("AXSize", AXError::cannotComplete);
    EXPECT_EQ(focused().axBounds, std::nullopt);
    window->set("AXSize", Point{640, 480}); // a value of another type
    EXPECT_EQ(focused().axBounds, std::nullopt);
    window->set("AXSize", Size{640, 480});
    window->fail("AXPosition", AXError::failure);
    EXPECT_EQ(focused().axBounds, std::nullopt);
}

} // namespace
} // namespace haloric
