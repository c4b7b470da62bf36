#include "hosts/sim/windows/SimWindowServerLibrary.h"
#include "unit/hosts/sim/SimDesktopFixture.h"
#include "windowserver/WindowServerEntries.h"

namespace haloric {
namespace {

struct LibraryFixture : SimDesktopFixture {
    SimWindowServerLibrary library{desktop};
    std::unique_ptr<OpenedLibrary> opened = library.open("", 0);
    WindowServerEntries entries = WindowServerEntries::find(*opened);
    SimWindow& overlay = addOverlay({10, 680, 300, 200});

    void carry(const SimWindow& window, double x, double y)
    {
        void* transaction = entries.create(entries.mainConnection());
        entries.move(transaction, static_cast<std::uint32_t>(window.number), {x, y});
        entries.commit(transaction, 0);
        library.release(transaction);
    }

    std::int32_t readBounds()
    {
        WindowServerEntries::CRect rect{};
        return entries.getBounds(entries.mainConnection(), static_cast<std::uint32_t>(overlay.number), &rect);
    }
};

TEST(SimWindowServerLibrary, a_connection_moves_its_own_windows_only)
{
    LibraryFixture fixture;
    SimWindow& other = fixture.open(fixture.launch("Editor"), "a");
    fixture.carry(fixture.overlay, 400, 300);
    fixture.carry(other, 0, 0);

    EXPECT_EQ(fixture.overlay.frame, (Rect{400, 300, 300, 200}));
    EXPECT_EQ(other.frame.origin(), Point(100, 100));
    EXPECT_EQ(fixture.library.openTransactions(), 0u);
}

TEST(SimWindowServerLibrary, entries_fail_miss_and_lie_as_told)
{
    LibraryFixture fixture;
    fixture.desktop.faults.failCall["SLSGetWindowBounds"] = 2;
    EXPECT_EQ(fixture.readBounds(), 0);
    EXPECT_NE(fixture.readBounds(), 0);
    EXPECT_EQ(fixture.readBounds(), 0);
    fixture.desktop.faults.failCall["SLSTransactionCreate"] = 1;
    EXPECT_EQ(fixture.entries.create(fixture.entries.mainConnection()), nullptr);
    fixture.desktop.faults.missingEntries = {"SLSTransactionCommit"};
    EXPECT_FALSE(WindowServerEntries::find(*fixture.library.open("", 0)).canMove());
    fixture.desktop.faults.libraryMissing = true;
    EXPECT_EQ(fixture.library.open("", 0), nullptr);
    fixture.desktop.faults.transactionsLie = true;
    fixture.carry(fixture.overlay, 1, 1);
    EXPECT_EQ(fixture.overlay.frame.origin(), Point(10, 680));
}

} // namespace
} // namespace haloric
