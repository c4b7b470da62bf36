#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SimNotifier, nothing_is_published_inside_the_verb_that_causes_it)
{
    SimDesktopFixture fixture;
    fixture.open(fixture.launch("Editor"), "a");
    EXPECT_THAT(fixture.workspace, IsEmpty());
    EXPECT_THAT(fixture.reported, IsEmpty());

    fixture.run();
    EXPECT_THAT(fixture.workspace, ElementsAre(WorkspaceNotification::didActivateApplication));
    EXPECT_THAT(fixture.reported,
                ElementsAre("Editor AXWindowCreated", "Editor AXFocusedWindowChanged", "Editor AXMainWindowChanged"));
}

TEST(SimNotifier, a_hung_application_reports_late_and_in_order)
{
    SimDesktopFixture fixture;
    SimApp& editor = fixture.launch("Editor");
    SimWindow& window = fixture.open(editor, "a");
    fixture.settle();

    fixture.desktop.applications.setResponsive(editor, false);
    fixture.desktop.windows.setFrame(window, {150, 100, 400, 300});
    fixture.desktop.windows.setFrame(window, {150, 100, 500, 300});
    fixture.run();
    EXPECT_THAT(fixture.reported, IsEmpty());
    EXPECT_EQ(fixture.serverEvents.size(), 2u) << "the window server reports without the application";

    fixture.desktop.applications.setResponsive(editor, true);
    fixture.run();
    EXPECT_THAT(fixture.reported, ElementsAre("Editor AXWindowMoved", "Editor AXWindowResized"));
}

TEST(SimNotifier, with_jitter_sources_overtake_each_other_but_each_keeps_its_order)
{
    bool overtaken = false;
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        SimDesktopFixture fixture;
        SimWindow& window = fixture.open(fixture.launch("Editor"), "a");
        fixture.settle();
        fixture.desktop.notifier.setJitter(seed, Seconds(0.02));
        std::vector<std::string> order;
        const auto first = fixture.desktop.notifier.accessibility.subscribe(
            [&](ProcessID, const std::string& name) { order.push_back(name); });
        const auto second = fixture.desktop.notifier.windowServer.subscribe([&](WindowServerEvent event, WindowNumber) {
            order.push_back(event == WindowServerEvent::moved ? "moved" : "resized");
        });
        fixture.desktop.windows.setFrame(window, {150, 120, 500, 400});
        fixture.run();

        ASSERT_EQ(order.size(), 4u);
        const auto place = [&](const char* name) { return std::ranges::find(order, name) - order.begin(); };
        EXPECT_LT(place("AXWindowMoved"), place("AXWindowResized"));
        EXPECT_LT(place("moved"), place("resized"));
        overtaken = overtaken || place("AXWindowMoved") < place("moved");
    }
    EXPECT_TRUE(overtaken);
}

} // namespace
} // namespace haloric
