#include "WindowListFixture.h"

namespace haloric {
namespace {

class WindowListTest : public WindowListFixture {};

TEST_F(WindowListTest, it_asks_for_the_windows_on_screen_without_desktop_elements_relative_to_none)
{
    list.onScreen();
    ASSERT_EQ(source.calls.size(), 1U);
    EXPECT_EQ(static_cast<std::uint32_t>(source.calls[0].options), 17U);
    EXPECT_EQ(source.calls[0].relativeTo, WindowNumber::none);
}

TEST_F(WindowListTest, without_a_list_there_is_no_entry)
{
    source.windows.reset();
    EXPECT_EQ(list.onScreen(), Entries{});
}

TEST_F(WindowListTest, without_a_screen_there_is_no_entry)
{
    source.windows = {window(1)};
    screens.set({});
    EXPECT_EQ(list.onScreen(), Entries{});
    EXPECT_TRUE(workspace.lookups.empty());
}

TEST_F(WindowListTest, an_entry_tells_frame_number_owner_and_bundle_identifier)
{
    source.windows = {window(7)};
    EXPECT_EQ(list.onScreen(), (Entries{{{10, 680, 300, 200}, WindowNumber{7}, kEditor, "org.example.editor"}}));
}

TEST_F(WindowListTest, the_frontmost_window_is_the_last)
{
    source.windows = {window(1), window(2), window(3)};
    EXPECT_EQ(listedNumbers(), (std::vector<std::uint32_t>{3, 2, 1}));
}

TEST_F(WindowListTest, a_window_that_is_skipped_does_not_hide_the_others)
{
    WindowInfo panel = window(2);
    panel.layer = std::int64_t{3};
    source.windows = {window(1), panel, window(3, kOwn), window(4)};
    EXPECT_EQ(listedNumbers(), (std::vector<std::uint32_t>{4, 1}));
}

TEST_F(WindowListTest, a_process_without_a_bundle_is_listed_without_an_identifier_and_asked_for_once)
{
    source.windows = {window(1, kTool), window(2, kTool)};
    const auto entries = list.onScreen();
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_FALSE(entries[0].bundleID.has_value());
    EXPECT_EQ(workspace.lookups, std::vector{kTool});
}

TEST_F(WindowListTest, each_process_is_asked_for_once_a_call)
{
    source.windows = {window(1), window(2, kTool), window(3), window(4, kTool)};
    const auto entries = list.onScreen();
    EXPECT_EQ(workspace.lookups, (std::vector{kEditor, kTool}));
    EXPECT_EQ(entries[3].bundleID, "org.example.editor");
    EXPECT_EQ(entries[1].bundleID, "org.example.editor");

    workspace.bundleIdentifiers[kTool] = "org.example.tool";
    EXPECT_EQ(list.onScreen()[0].bundleID, "org.example.tool") << "nothing is kept from call to call";
}

TEST_F(WindowListTest, a_window_on_a_screen_above_the_primary_one_lies_beyond_its_height)
{
    screens.set({Screen{{0, 0, 1440, 900}, DisplayID{1}}, Screen{{0, 900, 1920, 1080}, DisplayID{2}}});
    source.windows = {window(1, kEditor, {100, -1000, 400, 300})};
    EXPECT_EQ(list.onScreen()[0].rect, (Rect{100, 1600, 400, 300}));
}

TEST_F(WindowListTest, frames_are_turned_about_the_top_edge_of_the_first_screen)
{
    screens.set({Screen{{50, 60, 800, 600}, DisplayID{1}}, Screen{{0, 900, 1920, 1080}, DisplayID{2}}});
    source.windows = {window(1, kEditor, {1, 10, 20, 30})};
    EXPECT_EQ(list.onScreen()[0].rect, (Rect{1, 620, 20, 30}));
}

TEST_F(WindowListTest, entries_are_equal_when_every_member_is)
{
    const WindowList::Entry entry{kBounds, WindowNumber{1}, kEditor, "a"};
    EXPECT_EQ(entry, entry);
    EXPECT_NE(entry, (WindowList::Entry{{10, 20, 300, 201}, WindowNumber{1}, kEditor, "a"}));
    EXPECT_NE(entry, (WindowList::Entry{kBounds, WindowNumber{2}, kEditor, "a"}));
    EXPECT_NE(entry, (WindowList::Entry{kBounds, WindowNumber{1}, kTool, "a"}));
    EXPECT_NE(entry, (WindowList::Entry{kBounds, WindowNumber{1}, kEditor, "b"}));
    EXPECT_NE(entry, (WindowList::Entry{kBounds, WindowNumber{1}, kEditor, std::nullopt}));
}

} // namespace
} // namespace haloric
