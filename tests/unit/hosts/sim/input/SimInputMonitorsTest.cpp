#include "hosts/sim/input/SimInputMonitors.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

using testing::ElementsAre;

TEST(SimInputMonitors, buttons_reach_the_global_or_the_local_monitor_by_the_frontmost_application)
{
    SimDesktopFixture fixture;
    SimInputMonitors input(fixture.desktop);
    fixture.launch("Editor");
    std::vector<EventType> global;
    std::vector<EventType> local;
    const EventMask mask = maskOf(EventType::rightMouseDown) | maskOf(EventType::rightMouseUp);
    const auto first = input.addGlobalMouseMonitor(mask, [&](EventType type) { global.push_back(type); });
    const auto second = input.addLocalMouseMonitor(mask, [&](EventType type) { local.push_back(type); });

    fixture.desktop.pointer.press(SimButton::left); // not in the mask
    fixture.desktop.pointer.press(SimButton::right);
    fixture.desktop.pointer.press(SimButton::right); // is pressed already
    EXPECT_EQ(input.pressedMouseButtons(), 3u);
    fixture.run();
    EXPECT_THAT(global, ElementsAre(EventType::rightMouseDown));
    fixture.desktop.applications.activate(*fixture.desktop.model.app(SimModel::kOwnProcess));
    fixture.desktop.pointer.releaseAll();
    fixture.run();
    EXPECT_THAT(local, ElementsAre(EventType::rightMouseUp));
    EXPECT_EQ(global.size(), 1u);
}

TEST(SimInputMonitors, an_enabled_tap_receives_the_events_of_its_mask)
{
    SimDesktopFixture fixture;
    SimInputMonitors input(fixture.desktop);
    std::vector<EventType> reported;
    EventTapDescription description;
    description.mask = maskOf(EventType::keyDown) | maskOf(EventType::leftMouseUp);
    const auto tap = input.createEventTap(description, [&](const TapEvent& event) { reported.push_back(event.type); });
    ASSERT_TRUE(tap);
    tap->addToMainRunLoop();
    fixture.desktop.keyboard.press(21, 0);
    fixture.run();
    EXPECT_TRUE(reported.empty()) << "not enabled yet";

    tap->enable();
    fixture.desktop.keyboard.press(21, 0);
    fixture.desktop.pointer.press(SimButton::left);
    fixture.desktop.pointer.release(SimButton::left);
    fixture.run();
    EXPECT_THAT(reported, ElementsAre(EventType::keyDown, EventType::leftMouseUp));

    fixture.desktop.keyboard.disableTaps(EventType::tapDisabledByTimeout);
    fixture.desktop.keyboard.press(21, 0);
    fixture.run();
    EXPECT_THAT(reported.back(), EventType::tapDisabledByTimeout) << "reported, and then disabled";
    tap->enable();
    fixture.desktop.keyboard.press(21, 0);
    fixture.run();
    EXPECT_THAT(reported.back(), EventType::keyDown);
}

} // namespace
} // namespace haloric
