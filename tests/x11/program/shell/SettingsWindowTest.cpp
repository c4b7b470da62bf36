// The settings window as a window of the desktop: its highlight and its position.
#include "x11/program/shell/SettingsForm.h"

namespace haloric {
namespace {

class SettingsWindow : public SettingsForm {
protected:
    bool hasBorderAround(const ScreenRect& wanted)
    {
        return session.waitForPixels(nameOfTest() + "-border", wanted,
                                     [&](const ScreenImage& now) { return hasBorder(now, wanted); });
    }
};
INSTANTIATE_TEST_SUITE_P(Desktops, SettingsWindow, testing::Values(kOpenboxPicom, kXfwm4), nameOf);

TEST_P(SettingsWindow, it_is_highlighted_while_it_has_the_focus)
{
    open();
    EXPECT_TRUE(hasBorderAround(frame()));
    ASSERT_TRUE(client->focus());
    EXPECT_TRUE(waitForBorder(*client));
}

TEST_P(SettingsWindow, it_reopens_at_its_position)
{
    open();
    const ScreenRect first = frame();
    constexpr std::uint32_t kXAndYByTheUser = 3U << 8 | 2U << 12;
    session.observer().sendToRoot(shell->window(), "_NET_MOVERESIZE_WINDOW", {kXAndYByTheUser, 300, 120, 0, 0});
    ASSERT_TRUE(session.observer().waitUntil([&] { return frame().x != first.x && frame().y != first.y; }));
    ASSERT_TRUE(hasBorderAround(frame()));
    const ScreenRect moved = frame();
    ASSERT_TRUE(shell->closeSettings());
    ASSERT_TRUE(client->focus());
    ASSERT_TRUE(shell->openSettings());
    EXPECT_TRUE(session.observer().waitUntil([&] { return frame() == moved; })) << frame().x << ", " << frame().y;
    EXPECT_TRUE(hasBorderAround(moved));
}

} // namespace
} // namespace haloric
