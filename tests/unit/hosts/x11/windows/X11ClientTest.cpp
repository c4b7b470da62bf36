#include "hosts/x11/windows/X11Client.h"

namespace haloric {
namespace {

using testing::UnorderedElementsAre;
using Change = X11ClientChange;

X11Client client()
{
    X11Client made;
    made.window = 5;
    made.frame = 50;
    made.pid = ProcessID{7};
    made.mapped = true;
    made.geometry = {{10, 10, 100, 120}, {0, 20, 100, 100}, X11Extents{0, 0, 20, 0}, std::nullopt};
    return made;
}

std::vector<Change> changesTo(const X11Client& now)
{
    std::vector<X11ClientNotice> notices;
    X11ClientNotice::appendChanges(notices, client(), now);
    std::vector<Change> changes;
    for (const X11ClientNotice& notice : notices) {
        EXPECT_EQ(notice.window, 5U);
        EXPECT_EQ(notice.pid, ProcessID{7});
        changes.push_back(notice.change);
    }
    return changes;
}

TEST(X11ClientNotice, a_window_that_is_as_before_gives_none)
{
    X11Client now = client();
    now.measuredAt = 99;
    now.opacity = 0.5;
    EXPECT_THAT(changesTo(now), UnorderedElementsAre());
}

TEST(X11ClientNotice, moves_and_resizes_are_distinguished)
{
    X11Client moved = client();
    moved.geometry.frame.x += 1;
    EXPECT_THAT(changesTo(moved), UnorderedElementsAre(Change::moved));
    X11Client resized = client();
    resized.geometry.client.height += 1;
    EXPECT_THAT(changesTo(resized), UnorderedElementsAre(Change::resized));
}

TEST(X11ClientNotice, another_title_bar_counts_even_in_a_frame_of_the_same_size)
{
    X11Client now = client();
    now.geometry.decoration->top = 30;
    now.geometry.client = {0, 30, 100, 90};
    EXPECT_THAT(changesTo(now), UnorderedElementsAre(Change::redecorated));
}

TEST(X11ClientNotice, minimising_and_restoring_are_reported)
{
    X11Client minimised = client();
    minimised.hidden = true;
    EXPECT_THAT(changesTo(minimised), UnorderedElementsAre(Change::minimised));
    std::vector<X11ClientNotice> back;
    X11ClientNotice::appendChanges(back, minimised, client());
    EXPECT_THAT(back, UnorderedElementsAre(X11ClientNotice{ProcessID{7}, 5, Change::restored}));
}

TEST(X11ClientNotice, another_frame_desktop_or_type_is_worth_a_look)
{
    for (const auto alter :
         {+[](X11Client& now) { now.frame = 60; }, +[](X11Client& now) { now.desktop = 3; },
          +[](X11Client& now) { now.type = X11WindowType::dock; }, +[](X11Client& now) { now.mapped = false; }}) {
        X11Client now = client();
        alter(now);
        EXPECT_THAT(changesTo(now), UnorderedElementsAre(Change::otherwise));
    }
}

} // namespace
} // namespace haloric
