#include "hosts/sim/windows/SimAccessibility.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

struct AccessibilityFixture : SimDesktopFixture {
    SimSerialQueues queues{desktop.runLoop};
    SimAccessibility accessibility{desktop, queues};
    std::unique_ptr<SerialQueue> queue = queues.make("q", QualityOfService::userInitiated);
    SimApp& editor = launch("Editor");
    SimWindow& window = open(editor, "a", {100, 100, 400, 300});

    template <class Work>
    void onQueue(Work work)
    {
        queue->async(work);
        desktop.runLoop.runFor(Seconds(10));
    }

    AXAttribute ofWindow(std::string_view name)
    {
        AXAttribute result;
        onQueue([&] {
            const auto app = accessibility.createApplicationElement(editor.pid);
            const auto focused = accessibility.copyAttribute(app, "AXFocusedWindow");
            if (const auto* element = std::get_if<AXElement>(&focused.value))
                result = accessibility.copyAttribute(*element, name);
            else
                result = focused;
        });
        return result;
    }
};

TEST(SimAccessibility, a_hung_application_takes_the_messaging_timeout_of_virtual_time)
{
    AccessibilityFixture fixture;
    fixture.desktop.applications.setResponsive(fixture.editor, false);
    const Seconds start = fixture.desktop.runLoop.systemUptime();
    Seconds answered{0};
    Seconds meanwhile{0};
    AXAttribute result;
    fixture.queue->async([&] {
        const auto app = fixture.accessibility.createApplicationElement(fixture.editor.pid);
        fixture.accessibility.setMessagingTimeout(app, 0.25F);
        result = fixture.accessibility.copyAttribute(app, "AXFocusedWindow");
        fixture.desktop.runLoop.post([&] { answered = fixture.desktop.runLoop.systemUptime(); });
    });
    fixture.desktop.runLoop.postAfter(Seconds(0.1), [&] { meanwhile = fixture.desktop.runLoop.systemUptime(); });
    fixture.desktop.runLoop.runFor(Seconds(1));

    EXPECT_EQ(result.error, AXError::cannotComplete);
    EXPECT_NEAR((answered - start).count(), 0.25, 0.001);
    EXPECT_NEAR((meanwhile - start).count(), 0.1, 0.001) << "the main loop goes on";
}

TEST(SimAccessibility, without_trust_attributes_and_observers_are_refused)
{
    AccessibilityFixture fixture;
    fixture.desktop.model.trusted = false;

    EXPECT_EQ(fixture.ofWindow("AXRole").error, AXError::apiDisabled);
    fixture.onQueue([&] { EXPECT_EQ(fixture.accessibility.createObserver(fixture.editor.pid, [](auto) {}), nullptr); });
    EXPECT_FALSE(fixture.accessibility.isProcessTrustedWithPrompt(false));
    EXPECT_EQ(fixture.desktop.journal.count(SimJournal::Kind::prompt), 0u);
    EXPECT_FALSE(fixture.accessibility.isProcessTrustedWithPrompt(true));
    EXPECT_EQ(fixture.desktop.journal.count(SimJournal::Kind::prompt), 1u);
}

TEST(SimAccessibility, the_close_button_has_the_middle_of_the_title_bar)
{
    AccessibilityFixture fixture;
    fixture.window.titleBarHeight = 40;
    const AXAttribute button = fixture.ofWindow("AXCloseButton");
    ASSERT_TRUE(std::holds_alternative<AXElement>(button.value));
    fixture.onQueue([&] {
        const auto& element = std::get<AXElement>(button.value);
        const auto position = std::get<Point>(fixture.accessibility.copyAttribute(element, "AXPosition").value);
        const auto size = std::get<Size>(fixture.accessibility.copyAttribute(element, "AXSize").value);
        EXPECT_EQ(position.y + size.height / 2 - fixture.window.frame.y, 20);
    });

    fixture.window.decoration = SimDecoration::none;
    EXPECT_EQ(fixture.ofWindow("AXCloseButton").error, AXError::noValue);
    fixture.window.decoration = SimDecoration::client;
    EXPECT_EQ(fixture.ofWindow("AXCloseButton").error, AXError::failure);
}

TEST(SimAccessibility, one_call_of_many_can_time_out)
{
    AccessibilityFixture fixture;
    fixture.desktop.faults.timeoutAfterCalls = 2;

    EXPECT_EQ(fixture.ofWindow("AXRole").error, AXError::cannotComplete);
    EXPECT_EQ(fixture.ofWindow("AXRole").error, AXError::success);
}

TEST(SimAccessibility, a_refused_notification_is_not_delivered_and_the_others_are)
{
    AccessibilityFixture fixture;
    fixture.desktop.faults.refusedNotifications = {"AXWindowMoved"};
    std::vector<std::string> reported;
    std::unique_ptr<AXObserver> observer;
    fixture.onQueue([&] {
        const auto app = fixture.accessibility.createApplicationElement(fixture.editor.pid);
        observer =
            fixture.accessibility.createObserver(fixture.editor.pid, [&](auto name) { reported.emplace_back(name); });
        EXPECT_EQ(observer->addNotification(app, "AXWindowMoved"), AXError::notificationUnsupported);
        EXPECT_EQ(observer->addNotification(app, "AXWindowResized"), AXError::success);
    });
    observer->addToMainRunLoop();

    fixture.desktop.windows.setFrame(fixture.window, {0, 0, 500, 400});
    fixture.run();
    EXPECT_THAT(reported, testing::ElementsAre("AXWindowResized"));
    fixture.onQueue([&] { observer.reset(); });
}

TEST(SimAccessibility, calls_outside_a_queue_are_counted)
{
    AccessibilityFixture fixture;
    fixture.onQueue([&] { fixture.accessibility.createApplicationElement(fixture.editor.pid); });
    EXPECT_EQ(fixture.accessibility.misplacedCalls(), 0u);

    fixture.accessibility.createApplicationElement(fixture.editor.pid);
    EXPECT_EQ(fixture.accessibility.misplacedCalls(), 1u);
}

TEST(SimAccessibility, a_window_may_have_no_readable_number)
{
    AccessibilityFixture fixture;
    fixture.window.numberUntold = true;
    fixture.onQueue([&] {
        const auto app = fixture.accessibility.createApplicationElement(fixture.editor.pid);
        const auto focused = fixture.accessibility.copyAttribute(app, "AXFocusedWindow");
        const auto& element = std::get<AXElement>(focused.value);
        EXPECT_NE(fixture.accessibility.windowNumber(element).error, AXError::success);
        EXPECT_NE(fixture.accessibility.hash(element), 0u);
    });
}

} // namespace
} // namespace haloric
