#include "unit/hosts/sim/SimDesktopFixture.h"

namespace haloric {
namespace {

TEST(SimJournal, lines_have_time_kind_and_frame)
{
    SimDesktopFixture fixture;
    fixture.desktop.runLoop.runFor(Seconds(1.5));
    fixture.desktop.journal.note(SimJournal::Kind::log, "a line");
    fixture.desktop.journal.noteOverlay(SimJournal::Kind::overlayMoved, 7, {1, 2, 30.5, 40});

    const auto& entries = fixture.desktop.journal.entries();
    EXPECT_EQ(SimJournal::line(entries[0]), "    1.5000  log: a line");
    EXPECT_EQ(SimJournal::line(entries[1]), "    1.5000  overlay moved: #7 at 1, 2 size 30.5 x 40");
}

TEST(SimJournal, different_journals_have_different_digests_with_and_without_entries)
{
    const auto digestOf = [](const char* text, bool keeps) {
        SimDesktopFixture fixture;
        fixture.desktop.journal.setKeepsEntries(keeps);
        fixture.desktop.journal.note(SimJournal::Kind::log, text);
        EXPECT_EQ(fixture.desktop.journal.entries().size(), keeps ? 1u : 0u);
        EXPECT_EQ(fixture.desktop.journal.count(SimJournal::Kind::log), 1u);
        return fixture.desktop.journal.digest();
    };
    EXPECT_EQ(digestOf("a", true), digestOf("a", false));
    EXPECT_NE(digestOf("a", true), digestOf("b", true));
}

} // namespace
} // namespace haloric
