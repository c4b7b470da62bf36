// Overlay windows of the simulated desktop, between the toolkit and the window server.
#include "hosts/sim/overlay/SimToolkitWindows.h"
#include "hosts/sim/windows/SimWindowInfoSource.h"
#include "hosts/sim/windows/SimWindowServerLibrary.h"
#include "unit/hosts/sim/SimDesktopFixture.h"
#include "windowserver/WindowServerEntries.h"

namespace haloric {
namespace {

struct View final : ContentView {
    int drawn = 0;
    bool isOpaque() const override { return false; }
    bool isFlipped() const override { return false; }
    void draw(Canvas& canvas, const Rect& bounds) override
    {
        ++drawn;
        canvas.fillRect(bounds, {}, CompositingOperation::copy);
    }
    std::vector<Rect> paintedArea(const Rect& bounds) const override { return {bounds}; }
};

struct Delegate final : ToolkitWindowDelegate {
    bool canBecomeKey() const override { return false; }
    bool canBecomeMain() const override { return false; }
    Rect constrainFrameRect(const Rect& proposed) const override { return proposed; }
};

struct OverlayDesk : SimDesktopFixture {
    SimToolkitWindows windows{desktop};
    SimWindowServerLibrary library{desktop};
    std::unique_ptr<OpenedLibrary> opened = library.open("", 0);
    WindowServerEntries entries = WindowServerEntries::find(*opened);
    Delegate delegate;
    View view;
    std::unique_ptr<ToolkitWindow> window;

    OverlayDesk()
    {
        ToolkitWindowConfiguration configuration;
        configuration.level = 3;
        configuration.collectionBehavior = 2;
        window = windows.make(configuration, delegate);
        window->setContentView(view);
        window->setFrame({10, 20, 300, 200}, false);
        window->orderFront();
        desktop.runLoop.runPosted();
        view.drawn = 0;
    }

    std::uint32_t number() const { return static_cast<std::uint32_t>(window->windowNumber()); }

    void carry(double x, double y)
    {
        void* transaction = entries.create(entries.mainConnection());
        entries.move(transaction, number(), {x, y});
        entries.commit(transaction, 0);
        library.release(transaction);
    }

    Rect onServer() const { return desktop.model.windows.find(static_cast<WindowNumber>(number()))->frame; }
};

TEST(SimToolkitWindow, the_toolkit_does_not_ask_the_server_for_a_frame_that_it_believes_in_force)
{
    OverlayDesk desk;
    desk.carry(400, 300);
    EXPECT_EQ(desk.onServer(), (Rect{400, 300, 300, 200}));
    EXPECT_EQ(desk.window->frame(), (Rect{10, 20, 300, 200}));

    desk.window->setFrameOrigin({10, 20}); // where the toolkit thinks that it is
    EXPECT_EQ(desk.onServer(), (Rect{400, 300, 300, 200}));
    desk.window->setFrameOrigin({11, 20});
    EXPECT_EQ(desk.onServer(), (Rect{11, 680, 300, 200}));
}

TEST(SimToolkitWindow, requests_to_draw_are_joined_and_a_new_size_draws)
{
    OverlayDesk desk;
    desk.window->setNeedsDisplay();
    desk.window->setNeedsDisplay();
    desk.desktop.runLoop.runPosted();
    EXPECT_EQ(desk.view.drawn, 1);

    desk.window->setFrame({0, 0, 300, 200}, false);
    desk.desktop.runLoop.runPosted();
    EXPECT_EQ(desk.view.drawn, 1);
    desk.window->setFrame({0, 0, 301, 200}, false);
    desk.desktop.runLoop.runPosted();
    EXPECT_EQ(desk.view.drawn, 2);
    desk.window->orderOut();
    desk.window->setNeedsDisplay();
    desk.desktop.runLoop.runPosted();
    EXPECT_EQ(desk.view.drawn, 2) << "nobody sees it";
    desk.window->orderFront();
    desk.desktop.runLoop.runPosted();
    EXPECT_EQ(desk.view.drawn, 3);
}

TEST(SimToolkitWindow, an_overlay_stays_on_its_space_until_it_is_ordered_to_the_front)
{
    OverlayDesk desk;
    const SimWindow& record = *desk.desktop.model.windows.find(static_cast<WindowNumber>(desk.number()));
    desk.desktop.spaces.switchTo(2);
    EXPECT_FALSE(desk.desktop.model.isOnScreen(record));

    desk.window->orderFront();
    EXPECT_TRUE(desk.desktop.model.isOnScreen(record));
}

TEST(SimToolkitWindow, overlays_keep_their_place_when_the_origin_of_space_moves)
{
    OverlayDesk desk;
    desk.desktop.screens.plug({DisplayID{2}, {1440, 0, 1000, 900}, 60, 1});
    desk.window->setFrame({1500, 20, 300, 200}, false);
    desk.desktop.screens.unplug(DisplayID{1});

    EXPECT_EQ(desk.window->frame(), (Rect{60, 20, 300, 200}));
    EXPECT_EQ(desk.onServer(), (Rect{60, 680, 300, 200}));
}

TEST(SimWindowServerLibrary, a_connection_moves_its_own_windows_only)
{
    OverlayDesk desk;
    SimWindow& other = desk.open(desk.launch("Editor"), "a");
    void* transaction = desk.entries.create(desk.entries.mainConnection());
    desk.entries.move(transaction, static_cast<std::uint32_t>(other.number), {0, 0});
    desk.entries.commit(transaction, 0);
    desk.library.release(transaction);

    EXPECT_EQ(other.frame.origin(), Point(100, 100));
    EXPECT_EQ(desk.library.openTransactions(), 0u);
}

TEST(SimWindowServerLibrary, entries_fail_miss_and_lie_as_told)
{
    OverlayDesk desk;
    WindowServerEntries::CRect rect{};
    desk.desktop.faults.failCall["SLSGetWindowBounds"] = 2;
    EXPECT_EQ(desk.entries.getBounds(desk.entries.mainConnection(), desk.number(), &rect), 0);
    EXPECT_NE(desk.entries.getBounds(desk.entries.mainConnection(), desk.number(), &rect), 0);
    EXPECT_EQ(desk.entries.getBounds(desk.entries.mainConnection(), desk.number(), &rect), 0);
    desk.desktop.faults.failCall["SLSTransactionCreate"] = 1;
    EXPECT_EQ(desk.entries.create(desk.entries.mainConnection()), nullptr);
    desk.desktop.faults.missingEntries = {"SLSTransactionCommit"};
    EXPECT_FALSE(WindowServerEntries::find(*desk.library.open("", 0)).canMove());
    desk.desktop.faults.libraryMissing = true;
    EXPECT_EQ(desk.library.open("", 0), nullptr);
    desk.desktop.faults.transactionsLie = true;
    desk.carry(1, 1);
    EXPECT_EQ(desk.onServer().origin(), Point(10, 680));
}

TEST(SimWindowInfoSource, reads_can_give_nothing_for_a_while)
{
    OverlayDesk desk;
    SimWindowInfoSource source(desk.desktop);
    desk.desktop.faults.missingWindowLists = 1;

    EXPECT_FALSE(source.copyWindowInfo(WindowListOptions::onScreenOnly, WindowNumber::none));
    const auto list = source.copyWindowInfo(WindowListOptions::onScreenOnly, WindowNumber::none);
    ASSERT_TRUE(list);
    ASSERT_EQ(list->size(), 1u);
    EXPECT_EQ(list->front().layer, WindowInfoValue(std::int64_t{3}));
}

} // namespace
} // namespace haloric
