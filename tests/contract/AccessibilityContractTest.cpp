#include "contract/HostContract.h"

#include <algorithm>
#include <string>

namespace haloric {
namespace {

class AccessibilityContract : public HostContract {
protected:
    // An observer of an application, on the run loop, with the names that it has reported.
    struct Watch {
        std::unique_ptr<AXObserver> observer;
        std::vector<std::string> reported;
    };

    void start(Watch& watch, ProcessID pid)
    {
        onQueue([&] {
            const AXElement app = host->accessibility().createApplicationElement(pid);
            watch.observer = host->accessibility().createObserver(
                pid, [&watch](std::string_view name) { watch.reported.emplace_back(name); });
            if (!watch.observer)
                return;
            for (const char* name :
                 {"AXFocusedWindowChanged", "AXMainWindowChanged", "AXWindowMoved", "AXWindowResized",
                  "AXWindowMiniaturized", "AXWindowDeminiaturized", "AXWindowCreated", "AXUIElementDestroyed",
                  "AXApplicationHidden", "AXApplicationShown", "AXFocusedUIElementChanged"})
                watch.observer->addNotification(app, name);
        });
        ASSERT_TRUE(watch.observer);
        watch.observer->addToMainRunLoop();
    }

    void stop(Watch& watch)
    {
        watch.observer->removeFromMainRunLoop();
        onQueue([&] { watch.observer.reset(); });
    }

    bool reports(Watch& watch, const char* name)
    {
        return host->waitUntil([&] { return std::ranges::count(watch.reported, name) > 0; });
    }
};

TEST_P(AccessibilityContract, the_program_is_trusted_on_a_desktop_that_works)
{
    EXPECT_TRUE(host->waitUntil([&] { return host->accessibility().isProcessTrusted(); }));
}

TEST_P(AccessibilityContract, the_focused_window_is_a_window_with_its_number)
{
    const ContractWindow window = host->openWindow(kFrame);

    EXPECT_TRUE(host->waitUntil([&] { return numberOfFocusedWindow(window.pid) == window.number; }));
    EXPECT_EQ(attributeOfFocusedWindow(window.pid, "AXRole").value, AXValue(std::string("AXWindow")));
    const AXAttribute minimised = attributeOfFocusedWindow(window.pid, "AXMinimized");
    EXPECT_EQ(minimised.error, AXError::success);
    EXPECT_EQ(minimised.value, AXValue(false));
}

TEST_P(AccessibilityContract, position_and_size_are_those_of_the_visible_frame)
{
    const ContractWindow window = host->openWindow(kFrame);
    EXPECT_TRUE(host->waitUntil([&] { return numberOfFocusedWindow(window.pid) == window.number; }));
    const Rect frame = host->frameOf(window).value();

    EXPECT_EQ(attributeOfFocusedWindow(window.pid, "AXPosition").value, AXValue(frame.origin()));
    EXPECT_EQ(attributeOfFocusedWindow(window.pid, "AXSize").value, AXValue(frame.size()));
}

TEST_P(AccessibilityContract, elements_of_one_window_have_one_hash)
{
    const ContractWindow window = host->openWindow(kFrame);
    EXPECT_TRUE(host->waitUntil([&] { return numberOfFocusedWindow(window.pid) == window.number; }));
    const AXAttribute once = attribute(window.pid, "AXFocusedWindow");
    const AXAttribute twice = attribute(window.pid, "AXFocusedWindow");

    onQueue([&] {
        Accessibility& accessibility = host->accessibility();
        EXPECT_EQ(accessibility.hash(std::get<AXElement>(once.value)),
                  accessibility.hash(std::get<AXElement>(twice.value)));
    });
}

TEST_P(AccessibilityContract, an_unknown_attribute_and_a_missing_process_give_errors)
{
    const ContractWindow window = host->openWindow(kFrame);
    EXPECT_TRUE(host->waitUntil([&] { return numberOfFocusedWindow(window.pid) == window.number; }));

    EXPECT_NE(attributeOfFocusedWindow(window.pid, "AXNothingOfTheKind").error, AXError::success);
    EXPECT_NE(attribute(ProcessID{0x3fffffff}, "AXFocusedWindow").error, AXError::success);
}

TEST_P(AccessibilityContract, moves_and_resizes_are_reported)
{
    const ContractWindow window = host->openWindow(kFrame);
    Watch watch;
    start(watch, window.pid);

    host->move(window, {260, 180});
    EXPECT_TRUE(reports(watch, "AXWindowMoved"));
    EXPECT_TRUE(host->waitUntil([&] { return host->frameOf(window)->origin() == Point(260, 180); }));
    host->resize(window, {500, 360});
    EXPECT_TRUE(reports(watch, "AXWindowResized"));
    stop(watch);
}

TEST_P(AccessibilityContract, minimising_is_reported_and_sets_the_attribute)
{
    const ContractWindow window = host->openWindow(kFrame);
    const AXAttribute element = attribute(window.pid, "AXFocusedWindow");
    ASSERT_EQ(element.error, AXError::success);
    Watch watch;
    start(watch, window.pid);

    host->minimise(window);
    EXPECT_TRUE(reports(watch, "AXWindowMiniaturized"));
    EXPECT_TRUE(host->waitUntil([&] {
        AXAttribute minimised;
        onQueue([&] {
            minimised = host->accessibility().copyAttribute(std::get<AXElement>(element.value), "AXMinimized");
        });
        return minimised.value == AXValue(true);
    }));
    stop(watch);
}

TEST_P(AccessibilityContract, closing_is_reported_and_invalidates_the_element)
{
    const ContractWindow window = host->openWindow(kFrame);
    const AXAttribute element = attribute(window.pid, "AXFocusedWindow");
    ASSERT_EQ(element.error, AXError::success);
    Watch watch;
    start(watch, window.pid);

    host->close(window);
    EXPECT_TRUE(reports(watch, "AXUIElementDestroyed"));
    EXPECT_TRUE(host->waitUntil([&] {
        AXAttribute role;
        onQueue([&] { role = host->accessibility().copyAttribute(std::get<AXElement>(element.value), "AXRole"); });
        return role.error != AXError::success;
    }));
    stop(watch);
}

TEST_P(AccessibilityContract, an_observer_off_the_run_loop_reports_nothing)
{
    const ContractWindow window = host->openWindow(kFrame);
    Watch watch;
    start(watch, window.pid);
    watch.observer->removeFromMainRunLoop();

    host->move(window, {260, 180});
    EXPECT_TRUE(host->waitUntil([&] { return host->frameOf(window)->origin() == Point(260, 180); }));
    host->turnFor(Seconds(0.1));
    EXPECT_TRUE(watch.reported.empty());
    onQueue([&] { watch.observer.reset(); });
}

TEST_P(AccessibilityContract, an_observer_reports_its_own_application_only)
{
    const ContractWindow first = host->openWindow(kFrame);
    const ContractWindow second = host->openWindow(kOtherFrame);
    Watch watch;
    start(watch, first.pid);

    host->move(second, {300, 220});
    EXPECT_TRUE(host->waitUntil([&] { return host->frameOf(second)->origin() == Point(300, 220); }));
    host->turnFor(Seconds(0.1));
    EXPECT_EQ(std::ranges::count(watch.reported, "AXWindowMoved"), 0);
    stop(watch);
}

INSTANTIATE_TEST_SUITE_P(Hosts, AccessibilityContract, testing::ValuesIn(contractHosts()), contractHostName);

} // namespace
} // namespace haloric
