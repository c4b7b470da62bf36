#include "hosts/sim/windows/SimWindowServerCalls.h"
#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

using Entry = WindowServerCalls::Entry;

struct ServerFixture : SimDesktopFixture {
    int notifications = 0;
    SimWindowServerCalls server{desktop};
    SimWindow& overlay = addOverlay({10, 680, 300, 200});
    Subscription loaded = server.load([this](WindowServerEvent, WindowNumber) { ++notifications; });

    void loadAgain()
    {
        loaded.reset();
        loaded = server.load([](WindowServerEvent, WindowNumber) {});
    }

    void carry(const SimWindow& window, double x, double y)
    {
        const auto transaction = server.create(server.mainConnection());
        transaction->move(window.number, {x, y});
        EXPECT_EQ(server.openTransactions(), 1u);
        transaction->commit();
    }

    bool hasBounds() { return server.getBounds(server.mainConnection(), overlay.number).has_value(); }
};

TEST(SimWindowServerCalls, a_connection_moves_its_own_windows_only)
{
    ServerFixture fixture;
    SimWindow& other = fixture.open(fixture.launch("Editor"), "a");
    fixture.carry(fixture.overlay, 400, 300);
    fixture.carry(other, 0, 0);

    EXPECT_EQ(fixture.overlay.frame, (Rect{400, 300, 300, 200}));
    EXPECT_EQ(other.frame.origin(), Point(100, 100));
    EXPECT_EQ(fixture.server.openTransactions(), 0u);
}

TEST(SimWindowServerCalls, calls_fail_and_transactions_lie_when_a_fault_is_set)
{
    ServerFixture fixture;
    fixture.desktop.faults.failCall["SLSGetWindowBounds"] = 2;
    EXPECT_TRUE(fixture.hasBounds());
    EXPECT_FALSE(fixture.hasBounds());
    EXPECT_TRUE(fixture.hasBounds());
    fixture.desktop.faults.failCall["SLSTransactionCreate"] = 1;
    EXPECT_EQ(fixture.server.create(fixture.server.mainConnection()), nullptr);
    fixture.desktop.faults.transactionsLie = true;
    fixture.carry(fixture.overlay, 1, 1);
    EXPECT_EQ(fixture.overlay.frame.origin(), Point(10, 680));
}

TEST(SimWindowServerCalls, entries_are_missing_from_the_next_loading_on)
{
    ServerFixture fixture;
    fixture.desktop.faults.missingEntries = {"SLSTransactionCommit"};
    EXPECT_TRUE(fixture.server.has(Entry::commit));
    fixture.loadAgain();
    EXPECT_FALSE(fixture.server.has(Entry::commit));
    EXPECT_TRUE(fixture.server.has(Entry::move));
    fixture.desktop.faults.libraryMissing = true;
    fixture.loadAgain();
    EXPECT_FALSE(fixture.server.has(Entry::move));
}

TEST(SimWindowServerCalls, two_desktops_notify_their_own_programs)
{
    ServerFixture first;
    ServerFixture second;
    for (ServerFixture* fixture : {&first, &second}) {
        SimWindow& window = fixture->open(fixture->launch("Editor"), "a");
        fixture->settle();
        fixture->server.registerProc(WindowServerEvent::moved);
        fixture->server.request(fixture->server.mainConnection(), window.number);
    }
    second.desktop.windows.setFrame(*second.desktop.model.windows.named("a"), {150, 120, 400, 300});
    first.run();
    second.run();
    EXPECT_EQ(first.notifications, 0);
    EXPECT_EQ(second.notifications, 1);
}

} // namespace
} // namespace haloric
