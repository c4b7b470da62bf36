#include "hosts/x11/input/X11Keyboard.h"

#define XK_LATIN1
#define XK_MISCELLANY
#define XK_CYRILLIC
#include <X11/keysymdef.h>

namespace haloric {
namespace {

X11Key key(std::vector<std::uint32_t> symbols) { return keyWithSymbols(symbols); }

TEST(X11Keyboard, the_keys_that_the_program_knows_have_their_numbers)
{
    EXPECT_EQ(virtualKeyNumber(XK_4), 21);
    EXPECT_EQ(virtualKeyNumber(XK_5), 23);
    EXPECT_EQ(virtualKeyNumber(XK_3), 20);
    EXPECT_EQ(virtualKeyNumber(XK_f), 3);
    EXPECT_EQ(virtualKeyNumber(XK_F), 3);
    EXPECT_EQ(virtualKeyNumber(XK_Escape), 53);
}

TEST(X11Keyboard, letters_and_digits_have_numbers_of_their_own)
{
    std::set<std::int64_t> numbers;
    for (std::uint32_t letter = XK_a; letter <= XK_z; ++letter)
        numbers.insert(virtualKeyNumber(letter).value());
    for (std::uint32_t digit = XK_0; digit <= XK_9; ++digit)
        numbers.insert(virtualKeyNumber(digit).value());
    EXPECT_EQ(numbers.size(), 36U);
}

TEST(X11Keyboard, a_symbol_without_a_key_there_has_no_number)
{
    EXPECT_EQ(virtualKeyNumber(XK_Hyper_L), std::nullopt);
    EXPECT_EQ(virtualKeyNumber(XK_KP_4), std::nullopt); // the keypad's keys are others
    EXPECT_EQ(virtualKeyNumber(0), std::nullopt);
}

TEST(X11Keyboard, modifiers_have_their_flags)
{
    EXPECT_EQ(key({XK_Shift_R}).modifier, 0x20000U);
    EXPECT_EQ(key({XK_Control_L}).modifier, 0x40000U);
    EXPECT_EQ(key({XK_Alt_L, XK_Meta_L}).modifier, 0x80000U);
    EXPECT_EQ(key({XK_Super_L}).modifier, 0x100000U);
    EXPECT_EQ(key({XK_Caps_Lock}).modifier, 0x10000U);
    EXPECT_TRUE(key({XK_Caps_Lock}).isCapsLock);
    EXPECT_EQ(key({XK_a}).modifier, 0U);
}

TEST(X11Keyboard, locks_without_a_flag_are_known_as_locks)
{
    for (const std::uint32_t symbol : {XK_Num_Lock, XK_Scroll_Lock}) {
        EXPECT_TRUE(key({symbol}).isOtherLock);
        EXPECT_EQ(key({symbol}).modifier, 0U);
    }
    EXPECT_FALSE(key({XK_Caps_Lock}).isOtherLock);
    EXPECT_FALSE(key({XK_f}).isOtherLock);
}

TEST(X11Keyboard, letters_have_their_places_on_the_ansi_layout)
{
    EXPECT_EQ(keyCodeOfLetterPosition(3), 41);   // F
    EXPECT_EQ(keyCodeOfLetterPosition(12), 24);  // Q
    EXPECT_EQ(keyCodeOfLetterPosition(46), 58);  // M
    EXPECT_EQ(keyCodeOfLetterPosition(21), 0);   // a digit
    EXPECT_EQ(keyCodeOfLetterPosition(1000), 0); // no key at all
}

TEST(X11Keyboard, digits_on_the_shifted_level_name_the_key)
{
    EXPECT_EQ(key({XK_apostrophe, XK_4}).number, 21);
    EXPECT_EQ(key({XK_parenleft, XK_5}).number, 23);
}

TEST(X11Keyboard, letters_of_a_second_layout_name_the_key)
{
    EXPECT_EQ(key({XK_Cyrillic_a, XK_Cyrillic_A, XK_f, XK_F}).number, 3);
}

TEST(X11Keyboard, symbols_past_the_second_layout_do_not_name_it)
{
    EXPECT_EQ(key({XK_Cyrillic_a, XK_Cyrillic_A, 0, 0, XK_f}).number, std::nullopt);
}

TEST(X11Keyboard, the_print_key_is_told_apart)
{
    EXPECT_TRUE(key({XK_Print, XK_Sys_Req}).isPrintScreen);
    EXPECT_FALSE(key({XK_Escape}).isPrintScreen);
}

TEST(X11Keyboard, a_key_without_symbols_is_nothing) { EXPECT_EQ(key({}), X11Key()); }

} // namespace
} // namespace haloric
