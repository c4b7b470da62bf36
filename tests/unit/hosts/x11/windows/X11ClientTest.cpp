#include "hosts/x11/windows/X11Client.h"

#include "hosts/x11/server/X11Property.h"

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

X11Property extents(std::initializer_list<std::uint32_t> values)
{
    const std::string bytes(reinterpret_cast<const char*>(std::data(values)), values.size() * sizeof(std::uint32_t));
    return {XCB_ATOM_CARDINAL, 32, bytes};
}

// A frame window exactly as large as the decoration.
X11FrameGeometry snug() { return {{100, 100, 412, 330}, {5, 29, 402, 296}, X11Extents{5, 5, 29, 5}, std::nullopt}; }

TEST(X11FrameGeometry, the_visible_frame_is_the_client_with_its_decoration)
{
    EXPECT_EQ(snug().visibleFrame(), (PixelRect{100, 100, 412, 330}));
}

TEST(X11FrameGeometry, an_invisible_margin_of_the_frame_is_not_part_of_it)
{
    const X11FrameGeometry margin{{90, 92, 420, 360}, {10, 45, 400, 300}, X11Extents{0, 0, 37, 0}, std::nullopt};
    EXPECT_EQ(margin.visibleFrame(), (PixelRect{100, 100, 400, 337}));
}

TEST(X11FrameGeometry, a_shadow_that_the_client_draws_is_not_part_of_it)
{
    const X11FrameGeometry shadowed{{0, 0, 852, 648}, {0, 0, 852, 648}, X11Extents{}, X11Extents{26, 26, 23, 29}};
    EXPECT_EQ(shadowed.visibleFrame(), (PixelRect{26, 23, 800, 596}));
}

TEST(X11FrameGeometry, a_shadow_larger_than_the_window_is_taken_for_broken)
{
    const X11FrameGeometry broken{{0, 0, 40, 40}, {0, 0, 40, 40}, std::nullopt, X11Extents{26, 26, 23, 29}};
    EXPECT_EQ(broken.visibleFrame(), (PixelRect{0, 0, 40, 40}));
}

TEST(X11FrameGeometry, a_window_without_a_frame_is_its_own)
{
    X11FrameGeometry bare{{7, 8, 30, 20}, {1, 1, 28, 18}, std::nullopt, std::nullopt};
    EXPECT_EQ(bare.visibleFrame(), (PixelRect{8, 9, 28, 18})) << "the border of the window itself is not content";
    bare.frameConfigured({17, 18, 30, 20});
    EXPECT_EQ(bare.visibleFrame(), (PixelRect{18, 19, 28, 18}));
}

TEST(X11FrameGeometry, the_visible_frame_moves_with_the_frame)
{
    X11FrameGeometry geometry = snug();
    geometry.frameConfigured({-2000, 3000, 412, 330});
    EXPECT_EQ(geometry.visibleFrame(), (PixelRect{-2000, 3000, 412, 330}));
}

TEST(X11FrameGeometry, the_visible_frame_grows_and_shrinks_with_the_frame)
{
    X11FrameGeometry geometry = snug();
    geometry.frameConfigured({100, 100, 512, 230});
    EXPECT_EQ(geometry.visibleFrame(), (PixelRect{100, 100, 512, 230}));
    geometry.frameConfigured({100, 100, 2, 2});
    EXPECT_GE(geometry.visibleFrame().width, 0);
    EXPECT_GE(geometry.visibleFrame().height, 0);
}

TEST(X11FrameGeometry, without_a_property_the_decoration_is_what_the_frame_has_around_the_client)
{
    EXPECT_EQ(snug().aroundClient(), (X11Extents{5, 5, 29, 5}));
    const X11FrameGeometry larger{{0, 0, 40, 30}, {-2, -3, 50, 60}, std::nullopt, std::nullopt};
    EXPECT_EQ(larger.aroundClient(), X11Extents{}) << "the client is as large as its frame or larger";
}

TEST(X11Client, a_decoration_that_is_the_same_above_and_below_is_a_border_without_a_title_bar)
{
    X11Client now = client();
    EXPECT_EQ(now.decoration(), X11Decoration::windowManager);
    now.geometry.decoration = X11Extents{2, 2, 2, 2};
    EXPECT_EQ(now.decoration(), X11Decoration::none);
    now.geometry.decoration = X11Extents{2, 2, 0, 2};
    EXPECT_EQ(now.decoration(), X11Decoration::none);
}

TEST(X11Client, an_unmapped_window_is_not_shown_unless_it_is_rolled_up)
{
    X11Client now = client();
    EXPECT_TRUE(now.isShown());
    now.mapped = false;
    EXPECT_FALSE(now.isShown());
    now.shaded = true;
    EXPECT_TRUE(now.isShown());
}

TEST(X11FrameGeometry, a_border_belongs_to_the_frame)
{
    EXPECT_EQ(X11FrameGeometry::outerRect(10, 20, 100, 50, 3), (PixelRect{10, 20, 106, 56}));
}

TEST(X11FrameGeometry, a_rolled_up_window_shows_its_decoration_alone)
{
    EXPECT_EQ(snug().rolledUpFrame(), (PixelRect{100, 100, 412, 34}));
    X11FrameGeometry bare = snug();
    bare.decoration.reset();
    EXPECT_EQ(bare.rolledUpFrame(), bare.visibleFrame());
}

// On a screen of 1920 x 1080 pixels.
std::optional<X11Extents> readFrom(const X11Property& property) { return X11Extents::from(property, 1920, 1080); }

TEST(X11Extents, four_plausible_numbers_are_accepted)
{
    EXPECT_EQ(readFrom(extents({1, 2, 3, 4})), (X11Extents{1, 2, 3, 4}));
    EXPECT_EQ(readFrom(extents({1, 2, 3, 4, 5})), (X11Extents{1, 2, 3, 4}));
    EXPECT_EQ(readFrom(extents({0, 0, 0, 0})), X11Extents{});
}

TEST(X11Extents, sides_that_are_together_as_large_as_the_screen_are_not_believed)
{
    EXPECT_EQ(readFrom(extents({1000, 919, 1000, 79})), (X11Extents{1000, 919, 1000, 79}));
    EXPECT_EQ(readFrom(extents({1000, 920, 0, 0})), std::nullopt);
    EXPECT_EQ(readFrom(extents({0, 0, 1000, 80})), std::nullopt);
}

TEST(X11Extents, anything_else_counts_as_absent)
{
    EXPECT_EQ(readFrom({}), std::nullopt);
    EXPECT_EQ(readFrom(extents({})), std::nullopt);
    EXPECT_EQ(readFrom(extents({1, 2, 3})), std::nullopt);
    EXPECT_EQ(readFrom(extents({1, 2, 0xFFFFFFFF, 4})), std::nullopt);
    EXPECT_EQ(readFrom({XCB_ATOM_STRING, 8, "0123456789abcdef"}), std::nullopt);
}

} // namespace
} // namespace haloric
