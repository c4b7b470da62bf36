#include "hosts/x11/input/X11KeyCombination.h"

#include "platform/Hotkeys.h"

#include <array>
#include <utility>

#define XK_LATIN1
#define XK_MISCELLANY
#define XK_CYRILLIC
#include <X11/keysymdef.h>

namespace haloric {
namespace {

using Modifiers = std::vector<std::uint16_t>;
constexpr Hotkey kControlOptionCommandF{.keyCode = 3, .modifiers = 6400};

// A keyboard with the usual places of the modifiers; a test changes what it is about.
struct X11KeyCombinationTest : testing::Test {
    std::array<X11Key, 256> keys;
    // Two keys each: Shift, Lock, Control, Mod1 … Mod5.
    std::vector<std::uint8_t> modifierKeys{50, 62, 66, 0, 37, 105, 64, 108, 77, 0, 0, 0, 133, 134, 0, 0};

    X11KeyCombinationTest()
    {
        for (const auto& [code, symbol] : {std::pair{50, XK_Shift_L},
                                           {62, XK_Shift_R},
                                           {66, XK_Caps_Lock},
                                           {37, XK_Control_L},
                                           {105, XK_Control_R},
                                           {64, XK_Alt_L},
                                           {108, XK_Alt_R},
                                           {77, XK_Num_Lock},
                                           {133, XK_Super_L},
                                           {134, XK_Super_R},
                                           {41, XK_f}})
            set(code, {static_cast<std::uint32_t>(symbol)});
    }
    void set(int code, const std::vector<std::uint32_t>& symbols)
    {
        keys.at(static_cast<std::size_t>(code)) = keyWithSymbols(symbols);
    }
    std::optional<X11KeyCombination> find(const Hotkey& hotkey = kControlOptionCommandF) const
    {
        return X11KeyCombination::find(
            hotkey, [this](std::uint8_t code) -> const X11Key& { return keys.at(code); }, modifierKeys);
    }
};

TEST_F(X11KeyCombinationTest, command_option_and_control_are_super_alt_and_control)
{
    const auto found = find();
    ASSERT_TRUE(found);
    EXPECT_EQ(found->keyCode, 41);
    EXPECT_EQ(found->modifiers, 0x4C);
    EXPECT_EQ(found->locks, (Modifiers{0x02, 0x10}));
}

TEST_F(X11KeyCombinationTest, only_what_the_mask_names_must_be_held)
{
    EXPECT_EQ(find({.keyCode = 3, .modifiers = 0x200})->modifiers, 0x01);
    EXPECT_EQ(find({.keyCode = 3, .modifiers = 0})->modifiers, 0);
}

TEST_F(X11KeyCombinationTest, the_modifier_map_tells_where_the_modifiers_are)
{
    modifierKeys = {50, 0, 66, 0, 37, 0, 133, 0, 64, 0, 0, 0, 77, 0, 0, 0}; // Super first, then Alt; Num Lock is Mod4
    const auto found = find();
    ASSERT_TRUE(found);
    EXPECT_EQ(found->modifiers, 0x1C);
    EXPECT_EQ(found->locks, (Modifiers{0x02, 0x40}));
}

TEST_F(X11KeyCombinationTest, a_key_that_sets_two_modifiers_counts_for_the_lower)
{
    modifierKeys[14] = 64; // Alt is Mod5 as well
    EXPECT_EQ(find()->modifiers, 0x4C);
}

TEST_F(X11KeyCombinationTest, a_keyboard_without_the_modifier_has_no_such_combination)
{
    modifierKeys[12] = modifierKeys[13] = 0;
    EXPECT_EQ(find(), std::nullopt);
    EXPECT_NE(find({.keyCode = 3, .modifiers = 0x1800}), std::nullopt);
    modifierKeys.clear();
    EXPECT_EQ(find(), std::nullopt);
}

TEST_F(X11KeyCombinationTest, the_letter_is_found_where_the_layout_has_it)
{
    set(41, {XK_u, XK_U});
    set(29, {XK_f, XK_F});
    EXPECT_EQ(find()->keyCode, 29);
}

TEST_F(X11KeyCombinationTest, a_layout_without_the_letter_has_it_at_its_place)
{
    set(41, {XK_Cyrillic_a, XK_Cyrillic_A});
    EXPECT_EQ(find()->keyCode, 41);
}

TEST_F(X11KeyCombinationTest, a_key_that_is_no_letter_and_not_there_is_not_found)
{
    EXPECT_EQ(find({.keyCode = 53, .modifiers = 0}), std::nullopt); // Escape
}

TEST_F(X11KeyCombinationTest, each_choice_of_locks_has_its_modifiers)
{
    EXPECT_EQ(find()->modifiersWithLocks(), (Modifiers{0x4C, 0x4E, 0x5C, 0x5E}));
    modifierKeys[2] = modifierKeys[8] = 0;
    EXPECT_EQ(find()->modifiersWithLocks(), Modifiers{0x4C});
}

TEST_F(X11KeyCombinationTest, a_press_matches_whatever_locks_buttons_and_layout_groups_are_on)
{
    const X11KeyCombination found = *find();
    for (const int state : {0x4C, 0x4E, 0x5C, 0x5E, 0x14C, 0x204E})
        EXPECT_TRUE(found.matches(41, static_cast<std::uint16_t>(state))) << state;
    EXPECT_FALSE(found.matches(42, 0x4C));
    EXPECT_FALSE(found.matches(41, 0x0C));
    EXPECT_FALSE(found.matches(41, 0x4D)); // Shift as well
}

} // namespace
} // namespace haloric
