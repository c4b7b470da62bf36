#include "hosts/x11/refresh/X11DisplayLinks.h"

#include "hosts/sim/loop/SimRunLoop.h"

namespace haloric {
namespace {

struct X11ScreenLinkOnTimer : testing::Test {
    SimRunLoop loop;
    int ticks = 0;

    std::unique_ptr<X11ScreenLink> link(double framesPerSecond)
    {
        return std::make_unique<X11ScreenLink>(loop, nullptr, framesPerSecond, [this] { ++ticks; });
    }
    int ticksInASecond()
    {
        const int before = ticks;
        loop.runFor(Seconds(1));
        return ticks - before;
    }
};

TEST_F(X11ScreenLinkOnTimer, it_ticks_at_the_screens_rate_once_it_is_on_the_loop)
{
    const auto display = link(100);
    EXPECT_EQ(ticksInASecond(), 0);
    display->addToMainRunLoop();
    EXPECT_NEAR(ticksInASecond(), 100, 1);
}

TEST_F(X11ScreenLinkOnTimer, the_preferred_rate_counts)
{
    const auto display = link(100);
    display->setPreferredFrameRateRange({50, 50, 50});
    display->addToMainRunLoop();
    EXPECT_NEAR(ticksInASecond(), 50, 1);
}

TEST_F(X11ScreenLinkOnTimer, a_rate_that_makes_no_sense_counts_as_sixty)
{
    for (const double rate :
         {0.0, -5.0, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        const auto display = link(rate);
        display->addToMainRunLoop();
        EXPECT_NEAR(ticksInASecond(), 60, 1) << rate;
    }
}

TEST_F(X11ScreenLinkOnTimer, an_invalidated_link_is_silent)
{
    const auto display = link(60);
    display->addToMainRunLoop();
    display->invalidate();
    EXPECT_EQ(ticksInASecond(), 0);
}

TEST_F(X11ScreenLinkOnTimer, a_destroyed_link_is_silent)
{
    link(60)->addToMainRunLoop();
    EXPECT_EQ(ticksInASecond(), 0);
}

TEST_F(X11ScreenLinkOnTimer, a_tick_may_destroy_its_link)
{
    std::unique_ptr<X11ScreenLink> display;
    display = std::make_unique<X11ScreenLink>(loop, nullptr, 60, [&] {
        ++ticks;
        display.reset();
    });
    display->addToMainRunLoop();
    EXPECT_EQ(ticksInASecond(), 1);
}

TEST_F(X11ScreenLinkOnTimer, a_tick_may_replace_its_link)
{
    const std::string text(100, 'x'); // in the memory of the tick, which the replacement must not free
    std::unique_ptr<X11ScreenLink> display;
    display = std::make_unique<X11ScreenLink>(loop, nullptr, 60, [this, text, &display] {
        display = link(60);
        display->addToMainRunLoop();
        EXPECT_EQ(text, std::string(100, 'x'));
    });
    display->addToMainRunLoop();
    EXPECT_GE(ticksInASecond(), 50);
}

} // namespace
} // namespace haloric
