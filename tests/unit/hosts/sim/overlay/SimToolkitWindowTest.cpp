#include "hosts/sim/overlay/SimToolkitWindows.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

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

struct ToolkitWindowFixture : SimDesktopFixture {
    SimToolkitWindows windows{desktop};
    Delegate delegate;
    View view;
    std::unique_ptr<ToolkitWindow> window;

    ToolkitWindowFixture()
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

    SimWindow& onServer() { return *desktop.model.windows.find(static_cast<WindowNumber>(window->windowNumber())); }
};

TEST(SimToolkitWindow, the_toolkit_does_not_ask_the_server_for_a_frame_that_it_believes_in_force)
{
    ToolkitWindowFixture fixture;
    fixture.onServer().frame = {400, 300, 300, 200}; // moved by the window server
    EXPECT_EQ(fixture.window->frame(), (Rect{10, 20, 300, 200}));

    fixture.window->setFrameOrigin({10, 20}); // where the toolkit believes it to be
    EXPECT_EQ(fixture.onServer().frame, (Rect{400, 300, 300, 200}));
    fixture.window->setFrameOrigin({11, 20});
    EXPECT_EQ(fixture.onServer().frame, (Rect{11, 680, 300, 200}));
}

TEST(SimToolkitWindow, the_server_holds_the_window_in_the_layer_of_its_level)
{
    ToolkitWindowFixture fixture;
    EXPECT_EQ(fixture.onServer().layer, 3);
    EXPECT_EQ(fixture.onServer().owner, SimModel::kOwnProcess);
}

TEST(SimToolkitWindow, requests_to_draw_are_joined_and_a_new_size_draws)
{
    ToolkitWindowFixture fixture;
    fixture.window->setNeedsDisplay();
    fixture.window->setNeedsDisplay();
    fixture.desktop.runLoop.runPosted();
    EXPECT_EQ(fixture.view.drawn, 1);

    fixture.window->setFrame({0, 0, 300, 200}, false);
    fixture.desktop.runLoop.runPosted();
    EXPECT_EQ(fixture.view.drawn, 1);
    fixture.window->setFrame({0, 0, 301, 200}, false);
    fixture.desktop.runLoop.runPosted();
    EXPECT_EQ(fixture.view.drawn, 2);
    fixture.window->orderOut();
    fixture.window->setNeedsDisplay();
    fixture.desktop.runLoop.runPosted();
    EXPECT_EQ(fixture.view.drawn, 2) << "it is hidden";
    fixture.window->orderFront();
    fixture.desktop.runLoop.runPosted();
    EXPECT_EQ(fixture.view.drawn, 3);
}

TEST(SimToolkitWindow, an_overlay_stays_on_its_space_until_it_is_ordered_to_the_front)
{
    ToolkitWindowFixture fixture;
    const SimWindow& record = fixture.onServer();
    fixture.desktop.spaces.switchTo(2);
    EXPECT_FALSE(fixture.desktop.model.isOnScreen(record));

    fixture.window->orderFront();
    EXPECT_TRUE(fixture.desktop.model.isOnScreen(record));
}

TEST(SimToolkitWindow, overlays_keep_their_place_when_the_origin_of_space_moves)
{
    ToolkitWindowFixture fixture;
    fixture.desktop.screens.plug({DisplayID{2}, {1440, 0, 1000, 900}, 60, 1});
    fixture.window->setFrame({1500, 20, 300, 200}, false);
    fixture.desktop.screens.unplug(DisplayID{1});

    EXPECT_EQ(fixture.window->frame(), (Rect{60, 20, 300, 200}));
    EXPECT_EQ(fixture.onServer().frame, (Rect{60, 680, 300, 200}));
}

} // namespace
} // namespace haloric
