#include "hosts/linux/update/AppVersion.h"

namespace haloric {
namespace {

TEST(AppVersion, newer_versions_compare_as_greater_both_ways)
{
    for (const auto& [older, newer] :
         std::vector<std::pair<std::string, std::string>>{{"1.0", "1.1"},
                                                          {"1.9", "1.10"},
                                                          {"1.0", "1.0.1"},
                                                          {"0.9.9", "1"},
                                                          {"1.0b1", "1.0"},
                                                          {"1.0b1", "1.0b2"},
                                                          {"1.0b9", "1.0b10"},
                                                          {"1.0a3", "1.0b1"},
                                                          {"1.0b1", "1.0.1"},
                                                          {"1.0-rc.1", "1.0"},
                                                          {"1.0-rc.1", "1.0-rc.2"},
                                                          {"1.0-beta", "1.0-beta.1"},
                                                          {"99", "100"},
                                                          {"1.5", "2.0b1"},
                                                          {"1.0.0b1", "1.0"},
                                                          {"20251231", "20260101"},
                                                          {"1.99999999999999999998", "1.99999999999999999999"}}) {
        EXPECT_TRUE(AppVersion::compare(older, newer) < 0) << older << " " << newer;
        EXPECT_TRUE(AppVersion::compare(newer, older) > 0) << older << " " << newer;
    }
}

TEST(AppVersion, spelling_does_not_make_a_version_newer)
{
    for (const auto& [a, b] : std::vector<std::pair<std::string, std::string>>{{"1.0", "1.0"},
                                                                               {"1", "1.0.0"},
                                                                               {"1.02", "1.2"},
                                                                               {"1.0B1", "1.0b1"},
                                                                               {"1.0b1", "1.0-b.1"},
                                                                               {"1.0+7", "1.0"}})
        EXPECT_TRUE(AppVersion::compare(a, b) == 0 && AppVersion::compare(b, a) == 0) << a << " " << b;
}

TEST(AppVersion, a_version_begins_with_a_number)
{
    EXPECT_TRUE(AppVersion::isVersion("1"));
    EXPECT_TRUE(AppVersion::isVersion("2.0b1"));
    EXPECT_FALSE(AppVersion::isVersion(""));
    EXPECT_FALSE(AppVersion::isVersion("latest"));
    EXPECT_FALSE(AppVersion::isVersion(" 1"));
}

} // namespace
} // namespace haloric
