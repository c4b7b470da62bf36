#include "hosts/sim/windows/SimAccessibility.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

struct AXDesk : SimDesktopFixture {
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
    AXDesk desk;
    desk.desktop.applications.setResponsive(desk.editor, false);
    const Seconds start = desk.desktop.runLoop.systemUptime();
    Seconds answered{0};
    Seconds meanwhile{0};
    AXAttribute result;
    desk.queue->async([&] {
        const auto app = desk.accessibility.createApplicationElement(desk.editor.pid);
        desk.accessibility.setMessagingTimeout(app, 0.25F);
        result = desk.accessibility.copyAttribute(app, "AXFocusedWindow");
        desk.desktop.runLoop.post([&] { answered = desk.desktop.runLoop.systemUptime(); });
    });
    desk.desktop.runLoop.postAfter(Seconds(0.1), [&] { meanwhile = desk.desktop.runLoop.systemUptime(); });
    desk.desktop.runLoop.runFor(Seconds(1));

    EXPECT_EQ(result.error, AXError::cannotComplete);
    EXPECT_NEAR((answered - start).count(), 0.25, 0.001);
    EXPECT_NEAR((meanwhile - start).count(), 0.1, 0.001) << "the main loop goes on";
}

TEST(SimAccessibility, without_trust_nothing_is_told_and_nobody_observed)
{
    AXDesk desk;
    desk.desktop.model.trusted = false;

    EXPECT_EQ(desk.ofWindow("AXRole").error, AXError::apiDisabled);
    desk.onQueue([&] { EXPECT_EQ(desk.accessibility.createObserver(desk.editor.pid, [](auto) {}), nullptr); });
    EXPECT_FALSE(desk.accessibility.isProcessTrustedWithPrompt(false));
    EXPECT_EQ(desk.desktop.journal.count(SimJournal::Kind::prompt), 0u);
    EXPECT_FALSE(desk.accessibility.isProcessTrustedWithPrompt(true));
    EXPECT_EQ(desk.desktop.journal.count(SimJournal::Kind::prompt), 1u);
}

TEST(SimAccessibility, the_close_button_tells_the_title_bar)
{
    AXDesk desk;
    desk.window.titleBarHeight = 40;
    const AXAttribute button = desk.ofWindow("AXCloseButton");
    ASSERT_TRUE(std::holds_alternative<AXElement>(button.value));
    desk.onQueue([&] {
        const auto& element = std::get<AXElement>(button.value);
        const auto position = std::get<Point>(desk.accessibility.copyAttribute(element, "AXPosition").value);
        const auto size = std::get<Size>(desk.accessibility.copyAttribute(element, "AXSize").value);
        EXPECT_EQ(position.y + size.height / 2 - desk.window.frame.y, 20);
    });

    desk.window.decoration = SimDecoration::none;
    EXPECT_EQ(desk.ofWindow("AXCloseButton").error, AXError::noValue);
    desk.window.decoration = SimDecoration::client;
    EXPECT_EQ(desk.ofWindow("AXCloseButton").error, AXError::failure);
}

TEST(SimAccessibility, one_call_of_many_can_time_out)
{
    AXDesk desk;
    desk.desktop.faults.timeoutAfterCalls = 2;

    EXPECT_EQ(desk.ofWindow("AXRole").error, AXError::cannotComplete);
    EXPECT_EQ(desk.ofWindow("AXRole").error, AXError::success);
}

TEST(SimAccessibility, a_refused_notification_is_not_delivered_and_the_others_are)
{
    AXDesk desk;
    desk.desktop.faults.refusedNotifications = {"AXWindowMoved"};
    std::vector<std::string> heard;
    std::unique_ptr<AXObserver> observer;
    desk.onQueue([&] {
        const auto app = desk.accessibility.createApplicationElement(desk.editor.pid);
        observer = desk.accessibility.createObserver(desk.editor.pid, [&](auto name) { heard.emplace_back(name); });
        EXPECT_EQ(observer->addNotification(app, "AXWindowMoved"), AXError::notificationUnsupported);
        EXPECT_EQ(observer->addNotification(app, "AXWindowResized"), AXError::success);
    });
    observer->addToMainRunLoop();

    desk.desktop.windows.setFrame(desk.window, {0, 0, 500, 400});
    desk.run();
    EXPECT_THAT(heard, testing::ElementsAre("AXWindowResized"));
    desk.onQueue([&] { observer.reset(); });
}

TEST(SimAccessibility, calls_outside_a_queue_are_counted)
{
    AXDesk desk;
    desk.onQueue([&] { desk.accessibility.createApplicationElement(desk.editor.pid); });
    EXPECT_EQ(desk.accessibility.misplacedCalls(), 0u);

    desk.accessibility.createApplicationElement(desk.editor.pid);
    EXPECT_EQ(desk.accessibility.misplacedCalls(), 1u);
}

TEST(SimAccessibility, a_window_may_keep_its_number_to_itself)
{
    AXDesk desk;
    desk.window.numberUntold = true;
    desk.onQueue([&] {
        const auto app = desk.accessibility.createApplicationElement(desk.editor.pid);
        const auto focused = desk.accessibility.copyAttribute(app, "AXFocusedWindow");
        const auto& element = std::get<AXElement>(focused.value);
        EXPECT_NE(desk.accessibility.windowNumber(element).error, AXError::success);
        EXPECT_NE(desk.accessibility.hash(element), 0u);
    });
}

} // namespace
} // namespace haloric
