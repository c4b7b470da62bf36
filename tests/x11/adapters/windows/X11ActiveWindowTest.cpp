// The tracker over the adapters, on a desktop whose window manager does nothing: the test writes its properties.
#include "fakes/FakeApplication.h"
#include "fakes/FakeProcesses.h"
#include "hosts/linux/loop/LinuxSerialQueues.h"
#include "tracking/FocusTracker.h"
#include "tracking/FocusTrackerDependencies.h"
#include "windowserver/SharedWindowServer.h"
#include "x11/adapters/DesktopAdapters.h"

#include <algorithm>
#include <vector>

namespace haloric {
namespace {

class X11ActiveWindowTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(client->show());
        announceWindowManager();
        DesktopObserver& observer = session.observer();
        for (const char* list : {"_NET_CLIENT_LIST", "_NET_CLIENT_LIST_STACKING", "_NET_ACTIVE_WINDOW"})
            observer.setValues(observer.root(), list, XCB_ATOM_WINDOW, {client->window()});
        observer.synchronize();
        tracker.onChange = [this](const FocusState& state) { published.push_back(state); };
        tracker.start();
        ASSERT_TRUE(adapters.waitUntil([this] { return tracker.state().frame.has_value(); }));
    }

    void announceWindowManager()
    {
        DesktopObserver& observer = session.observer();
        const xcb_window_t check = xcb_generate_id(observer.raw());
        xcb_create_window(observer.raw(), XCB_COPY_FROM_PARENT, check, observer.root(), -10, -10, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        for (const xcb_window_t window : {check, observer.root()})
            observer.setValues(window, "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW, {check});
        observer.synchronize();
    }

    void setMapped(bool isMapped)
    {
        xcb_connection_t* raw = client->connection().raw();
        if (isMapped)
            xcb_map_window(raw, client->window());
        else
            xcb_unmap_window(raw, client->window());
        client->connection().synchronize();
    }

    X11Session session{WindowManager::none};
    std::unique_ptr<TestClient> client = session.makeClient({.application = TestClient::Application::ownOne});
    DesktopAdapters adapters{session.display()};
    LinuxSerialQueues serialQueues{adapters.loop};
    FakeApplication application;
    FakeProcesses processes;
    SharedWindowServer windowServer{adapters.windowServerCalls, processes, adapters.loop, adapters.log};
    FocusTracker tracker{{.runLoop = adapters.loop,
                          .serialQueues = serialQueues,
                          .displayLinks = adapters.displayLinks,
                          .workspace = adapters.workspace,
                          .screens = adapters.screens,
                          .accessibility = adapters.accessibility,
                          .windowInfo = adapters.windowInfoSource,
                          .input = adapters.input,
                          .application = application,
                          .windowServer = windowServer}};
    std::vector<FocusState> published;
};

TEST_F(X11ActiveWindowTest, one_that_is_unmapped_counts_as_no_window_until_it_is_mapped_again)
{
    const auto frame = tracker.state().frame;
    published.clear();
    setMapped(false);
    ASSERT_TRUE(adapters.waitUntil([this] { return !tracker.state().frame; }));
    ASSERT_TRUE(adapters.waitUntil([this] { return !tracker.isFastTracking(); })); // it reads once a frame until then
    EXPECT_EQ(std::ranges::count_if(published, [](const FocusState& state) { return state.frame.has_value(); }), 0);
    EXPECT_EQ(published.size(), 1U);
    setMapped(true);
    EXPECT_TRUE(adapters.waitUntil([&] { return tracker.state().frame == frame; }));
}

TEST_F(X11ActiveWindowTest, one_that_is_unmapped_when_the_tracking_starts_counts_as_no_window)
{
    setMapped(false);
    adapters.settle();
    tracker.stop();
    published.clear();
    tracker.start();
    ASSERT_TRUE(adapters.waitUntil([this] { return !tracker.isFastTracking(); }));
    EXPECT_EQ(std::ranges::count_if(published, [](const FocusState& state) { return state.frame.has_value(); }), 0);
}

} // namespace
} // namespace haloric
