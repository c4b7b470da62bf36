#include "hosts/x11/windows/X11ClientReader.h"
#include "x11/adapters/DesktopAdapters.h"

#include <unistd.h>

namespace haloric {
namespace {

constexpr std::uint32_t kFirst = 1001;
constexpr std::uint32_t kSecond = 1002;

class X11WorkspaceTest : public testing::TestWithParam<WindowManager> {
protected:
    std::unique_ptr<TestClient> makeClient(std::uint32_t pid, int x)
    {
        return session.makeClient({.content = {x, 250, 400, 300}, .processId = pid});
    }

    bool isFrontmost(std::uint32_t pid)
    {
        return adapters.waitUntil([&] { return adapters.frontmost() == static_cast<ProcessID>(pid); });
    }

    Subscription count(WorkspaceNotification notification, int& counter)
    {
        return adapters.workspace.observe(notification, [&counter] { ++counter; });
    }

    X11Session session{GetParam(), Compositor::none, withoutProcessIds()};
    DesktopAdapters adapters{session.display()};
};

TEST_P(X11WorkspaceTest, the_owner_of_the_active_window_is_frontmost)
{
    const auto first = makeClient(kFirst, 100);
    const auto second = makeClient(kSecond, 700);
    ASSERT_TRUE(first->showFocused());
    EXPECT_TRUE(isFrontmost(kFirst));
    ASSERT_TRUE(second->showFocused());
    EXPECT_TRUE(isFrontmost(kSecond));
    EXPECT_FALSE(adapters.workspace.frontmostApplication()->hidden);
}

TEST_P(X11WorkspaceTest, an_application_switch_is_reported_once)
{
    const auto first = makeClient(kFirst, 100);
    const auto second = makeClient(kSecond, 700);
    ASSERT_TRUE(adapters.appear(*first));
    ASSERT_TRUE(adapters.appear(*second));
    int activations = 0;
    const auto subscription = count(WorkspaceNotification::didActivateApplication, activations);
    ASSERT_TRUE(first->focus());
    ASSERT_TRUE(isFrontmost(kFirst));
    adapters.settle();
    EXPECT_EQ(activations, 1);
}

TEST_P(X11WorkspaceTest, another_window_of_the_same_application_is_no_activation)
{
    const auto one = makeClient(kFirst, 100);
    const auto other = makeClient(kFirst, 700);
    ASSERT_TRUE(adapters.appear(*one));
    ASSERT_TRUE(adapters.appear(*other));
    int activations = 0;
    const auto subscription = count(WorkspaceNotification::didActivateApplication, activations);
    ASSERT_TRUE(one->focus());
    ASSERT_TRUE(adapters.waitUntil([&] { return adapters.focusedWindow() == one->window(); }));
    adapters.settle();
    EXPECT_EQ(activations, 0);
}

TEST_P(X11WorkspaceTest, an_application_ends_with_its_last_window)
{
    const auto stays = makeClient(kSecond, 700);
    auto one = makeClient(kFirst, 100);
    const auto other = makeClient(kFirst, 300);
    for (auto* client : {stays.get(), one.get(), other.get()})
        ASSERT_TRUE(client->show());
    ASSERT_TRUE(adapters.waitUntil([&] { return adapters.clients.table().stacking().size() == 3; }));
    int ends = 0;
    const auto subscription = count(WorkspaceNotification::didTerminateApplication, ends);
    ASSERT_TRUE(one->close());
    ASSERT_TRUE(adapters.waitUntil([&] { return adapters.clients.table().stacking().size() == 2; }));
    EXPECT_EQ(ends, 0);
    ASSERT_TRUE(other->destroy());
    EXPECT_TRUE(adapters.waitUntil([&] { return ends == 1; }));
}

TEST_P(X11WorkspaceTest, another_desktop_is_reported)
{
    const auto client = makeClient(kFirst, 100);
    ASSERT_TRUE(client->showFocused());
    ASSERT_TRUE(isFrontmost(kFirst));
    int changes = 0;
    const auto subscription = count(WorkspaceNotification::activeSpaceDidChange, changes);
    session.observer().sendToRoot(session.observer().root(), "_NET_CURRENT_DESKTOP", {1, XCB_CURRENT_TIME});
    ASSERT_TRUE(adapters.waitUntil([&] { return changes == 1; }));
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.listedWindows().empty(); }));
    session.observer().sendToRoot(session.observer().root(), "_NET_CURRENT_DESKTOP", {0, XCB_CURRENT_TIME});
    ASSERT_TRUE(adapters.waitUntil([&] { return changes == 2; }));
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.listedWindows().size() == 1; }));
}

TEST_P(X11WorkspaceTest, the_frontmost_application_is_hidden_or_none_while_the_desktop_is_shown)
{
    const auto client = makeClient(kFirst, 100);
    ASSERT_TRUE(client->showFocused());
    ASSERT_TRUE(isFrontmost(kFirst));
    const auto isOut = [&] {
        const auto application = adapters.workspace.frontmostApplication();
        return !application || application->hidden;
    };
    session.observer().sendToRoot(session.observer().root(), "_NET_SHOWING_DESKTOP", {1});
    EXPECT_TRUE(adapters.waitUntil(isOut));
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.listedWindows().empty(); }));
    int activations = 0;
    const auto subscription = count(WorkspaceNotification::didActivateApplication, activations);
    session.observer().sendToRoot(session.observer().root(), "_NET_SHOWING_DESKTOP", {0});
    ASSERT_TRUE(client->focus());
    EXPECT_TRUE(adapters.waitUntil([&] { return !isOut() && activations > 0; }));
}

TEST_P(X11WorkspaceTest, an_application_is_identified_by_its_windows)
{
    const auto client = session.makeClient({.className = "SomeClass", .processId = kFirst});
    ASSERT_TRUE(client->showFocused());
    ASSERT_TRUE(isFrontmost(kFirst));
    EXPECT_EQ(adapters.workspace.bundleIdentifier(ProcessID{kFirst}), "SomeClass");
    EXPECT_EQ(adapters.workspace.bundleIdentifier(ProcessID{kSecond}), std::nullopt);
    client->connection().setText(client->window(), "_GTK_APPLICATION_ID", "org.example.Told");
    client->connection().synchronize();
    EXPECT_TRUE(adapters.waitUntil(
        [&] { return adapters.workspace.bundleIdentifier(ProcessID{kFirst}) == "org.example.Told"; }));
}

TEST_P(X11WorkspaceTest, a_class_in_latin_1_identifies_an_application_that_can_be_stored)
{
    const auto client = session.makeClient({.className = "Caf\xe9", .processId = kFirst});
    ASSERT_TRUE(client->showFocused());
    ASSERT_TRUE(isFrontmost(kFirst));
    EXPECT_EQ(adapters.workspace.bundleIdentifier(ProcessID{kFirst}), "Café");
}

INSTANTIATE_TEST_SUITE_P(Under, X11WorkspaceTest,
                         testing::Values(WindowManager::openbox, WindowManager::xfwm4, WindowManager::metacity),
                         nameOfParameter);

// Without a window manager the test itself says which window is active.
class ActiveWindow : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(client->show());
        other.setValues(other.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, {client->window()});
        activate({client->window()});
        ASSERT_TRUE(adapters.waitUntil([&] { return adapters.frontmost() == ProcessID{kFirst}; }));
    }

    void activate(const std::vector<std::uint32_t>& windows)
    {
        other.setValues(other.root(), "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW, windows);
        other.synchronize();
    }

    X11Session session{WindowManager::none, Compositor::none, withoutProcessIds()};
    TestConnection& other = session.observer();
    std::unique_ptr<TestClient> client = session.makeClient({.processId = kFirst});
    DesktopAdapters adapters{session.display()};
};

TEST_F(ActiveWindow, an_instant_without_one_is_bridged)
{
    int activations = 0;
    const auto subscription =
        adapters.workspace.observe(WorkspaceNotification::didActivateApplication, [&] { ++activations; });
    activate({XCB_WINDOW_NONE});
    adapters.settle();
    EXPECT_EQ(adapters.frontmost(), ProcessID{kFirst});
    EXPECT_EQ(adapters.focusedWindow(), client->window()) << "the main window stands in";
    activate({client->window()});
    adapters.settle();
    EXPECT_EQ(adapters.frontmost(), ProcessID{kFirst});
    EXPECT_EQ(activations, 0);
}

TEST_F(ActiveWindow, none_for_longer_means_that_no_application_is_frontmost)
{
    int activations = 0;
    const auto subscription =
        adapters.workspace.observe(WorkspaceNotification::didActivateApplication, [&] { ++activations; });
    activate({XCB_WINDOW_NONE});
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.frontmost() == ProcessID::none; }));
    EXPECT_EQ(activations, 1);
    activate({client->window()});
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.frontmost() == ProcessID{kFirst}; }));
    EXPECT_EQ(activations, 2);
}

TEST_F(ActiveWindow, repeating_the_value_or_adding_a_second_one_changes_nothing)
{
    int activations = 0;
    const auto subscription =
        adapters.workspace.observe(WorkspaceNotification::didActivateApplication, [&] { ++activations; });
    activate({client->window()});
    activate({client->window(), XCB_WINDOW_NONE});
    adapters.settle();
    EXPECT_EQ(adapters.focusedWindow(), client->window());
    EXPECT_EQ(activations, 0);
}

TEST_F(ActiveWindow, a_value_that_is_no_window_means_none)
{
    for (const std::vector<std::uint32_t>& value :
         {std::vector<std::uint32_t>{other.root()}, {0xFFFFFFFF}, {0x1FFFFFF}}) {
        activate(value);
        EXPECT_TRUE(adapters.waitUntil([&] { return adapters.frontmost() == ProcessID::none; }));
        activate({client->window()});
        EXPECT_TRUE(adapters.waitUntil([&] { return adapters.frontmost() == ProcessID{kFirst}; }));
    }
    other.setText(other.root(), "_NET_ACTIVE_WINDOW", "nonsense");
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.frontmost() == ProcessID::none; }));
}

TEST_F(ActiveWindow, windows_of_a_connection_without_any_process_id_belong_together)
{
    const auto silent = session.makeClient({.processId = std::nullopt});
    ASSERT_TRUE(silent->show());
    activate({silent->window()});
    ASSERT_TRUE(adapters.waitUntil([&] { return adapters.focusedWindow() == silent->window(); }));
    EXPECT_GE(static_cast<std::int32_t>(adapters.frontmost()), X11ProcessIds::kFirstPseudoId);
}

TEST(X11Workspace, the_server_knows_processes_better_than_windows_do)
{
    X11Session session(WindowManager::openbox);
    DesktopAdapters adapters(session.display());
    const auto liar = session.makeClient({.processId = 4242});
    ASSERT_TRUE(liar->showFocused());
    EXPECT_TRUE(adapters.waitUntil([&] { return adapters.frontmost() == ProcessID{getpid()}; }));
}

} // namespace
} // namespace haloric
