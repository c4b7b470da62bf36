// Writes that come from inside another write.
#include "fakes/FakeUserDefaults.h"
#include "settings/SettingsCodec.h"
#include "settings/SettingsStore.h"

#include <utility>
#include <vector>

namespace haloric {
namespace {

class SettingsStoreNestingTest : public testing::Test {
protected:
    FakeUserDefaults defaults;
    SettingsStore store{defaults};

    Settings storedSettings() { return SettingsCodec::decode(defaults.stored.at("Haloric.settings.v1")).value(); }

    static Settings withBorderWidth(double width)
    {
        Settings settings;
        settings.borderWidth = width;
        return settings;
    }
};

TEST_F(SettingsStoreNestingTest, the_last_of_nested_writes_holds_for_the_store_the_subscribers_and_the_stored_record)
{
    std::vector<double> first;
    std::vector<double> second;
    const auto writing = store.subscribe([&](const Settings& s) {
        if (s.borderWidth == 5)
            store.update([](Settings& nested) { nested.borderWidth = 6; });
        first.push_back(s.borderWidth);
    });
    const auto reading = store.subscribe([&](const Settings& s) { second.push_back(s.borderWidth); });
    store.setSettings(withBorderWidth(5));
    EXPECT_EQ(store.settings(), withBorderWidth(6));
    EXPECT_EQ(storedSettings(), withBorderWidth(6));
    EXPECT_EQ(first, (std::vector{3.0, 6.0, 5.0})) << "a record does not change while its subscriber reads it";
    EXPECT_EQ(second, (std::vector{3.0, 6.0, 6.0})) << "no subscriber ends up with the older record";
}

TEST_F(SettingsStoreNestingTest, a_write_by_a_new_subscriber_reaches_itself)
{
    std::vector<double> widths;
    const auto subscription = store.subscribe([&](const Settings& s) {
        widths.push_back(s.borderWidth);
        if (s.borderWidth == 3)
            store.setSettings(withBorderWidth(4));
    });
    EXPECT_EQ(widths, (std::vector{3.0, 4.0}));
}

TEST_F(SettingsStoreNestingTest, a_write_while_a_change_is_announced_is_overtaken_by_that_change)
{
    bool nested = false;
    const auto announced = store.onWillChange([&] {
        if (!std::exchange(nested, true))
            store.setSettings(withBorderWidth(6));
    });
    store.setSettings(withBorderWidth(5));
    EXPECT_EQ(store.settings(), withBorderWidth(5));
    EXPECT_EQ(storedSettings(), withBorderWidth(5));
}

TEST_F(SettingsStoreNestingTest, the_record_in_force_may_be_written_to_itself)
{
    store.setSettings(withBorderWidth(5));
    bool nested = false;
    const auto announced = store.onWillChange([&] {
        if (!std::exchange(nested, true))
            store.setSettings(withBorderWidth(6));
    });
    store.setSettings(store.settings());
    EXPECT_EQ(store.settings(), withBorderWidth(5));
}

} // namespace
} // namespace haloric
