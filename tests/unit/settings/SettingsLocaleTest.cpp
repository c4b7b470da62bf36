// A toolkit puts the user's locale in force for the whole process; neither the stored form nor the labels follow it.
#include "settings/SettingsCodec.h"
#include "settings/ValueText.h"

#include <clocale>
#include <cstdlib>
#include <string>

namespace haloric {
namespace {

TEST(SettingsLocaleTest, a_decimal_comma_changes_nothing)
{
    const auto expected = SettingsCodec::encode(Settings::defaults());
    ASSERT_EQ(setenv("LOCPATH", HALORIC_LOCALE_FOLDER, 1), 0);
    ASSERT_NE(std::setlocale(LC_NUMERIC, "comma_LOCALE"), nullptr);
    ASSERT_EQ(std::strtod("1,5", nullptr), 1.5);
    const auto encoded = SettingsCodec::encode(Settings::defaults());
    const auto decoded = SettingsCodec::decode(*expected);
    const auto comma = SettingsCodec::decode(R"({"borderWidth":1,5})");
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(encoded, expected);
    EXPECT_EQ(decoded, Settings::defaults());
    EXPECT_FALSE(comma.has_value());
}

TEST(SettingsLocaleTest, labels_keep_the_decimal_point_and_have_no_separators)
{
    ASSERT_EQ(setenv("LOCPATH", HALORIC_LOCALE_FOLDER, 1), 0);
    ASSERT_NE(std::setlocale(LC_NUMERIC, "comma_LOCALE"), nullptr);
    const std::string tenths = text(ValueText::pointsTenths, 1234.5);
    const std::string whole = text(ValueText::wholePoints, 1234567);
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(tenths, "1234.5 pt");
    EXPECT_EQ(whole, "1234567 pt");
}

} // namespace
} // namespace haloric
