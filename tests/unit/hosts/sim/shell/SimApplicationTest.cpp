#include "hosts/sim/shell/SimApplication.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

TEST(SimApplication, its_key_window_is_its_focused_one_while_it_is_frontmost)
{
    SimDesktopFixture fixture;
    SimApplication application(fixture.desktop);
    SimApp& own = *fixture.desktop.model.app(SimModel::kOwnProcess);
    EXPECT_FALSE(application.keyWindow());
    SimWindow& window = fixture.open(own, "settings", {100, 100, 400, 300});
    application.activateIgnoringOtherApps();

    const auto key = application.keyWindow();
    ASSERT_TRUE(key);
    EXPECT_EQ(key->frame, (Rect{100, 500, 400, 300}));
    EXPECT_EQ(key->contentLayoutHeight, 272);
    EXPECT_EQ(key->number, static_cast<std::int64_t>(window.number));
    EXPECT_TRUE(key->visible);
    EXPECT_FALSE(key->overlay);
    fixture.launch("Editor");
    EXPECT_FALSE(application.keyWindow());
}

TEST(SimApplication, it_terminates_once_and_notifies_its_delegate)
{
    struct Delegate : ApplicationDelegate {
        int launched = 0;
        int terminated = 0;
        void applicationDidFinishLaunching() override { ++launched; }
        void applicationWillTerminate() override { ++terminated; }
    } delegate;
    SimDesktopFixture fixture;
    SimApplication application(fixture.desktop);
    application.setDelegate(&delegate);
    application.run();
    application.terminate();
    application.terminate();

    EXPECT_EQ(delegate.launched, 1);
    EXPECT_EQ(delegate.terminated, 1);
    EXPECT_TRUE(application.hasTerminated());
}

} // namespace
} // namespace haloric
