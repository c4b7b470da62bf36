#include "settings/SettingsStore.h"

#include "fakes/FakeUserDefaults.h"
#include "settings/SettingsCodec.h"

#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace haloric {
namespace {

constexpr const char* kKey = "Haloric.settings.v1";
const PlatformError kFull{.localizedDescription = "The disk is full."};

// Stored data that notifies the test of writes.
class WatchedDefaults final : public UserDefaults {
public:
    explicit WatchedDefaults(std::vector<std::string>& journal) : m_journal(journal) {}
    std::optional<std::string> data(std::string_view) const override { return std::nullopt; }
    std::optional<PlatformError> setData(std::string_view key, std::string_view bytes) override
    {
        m_journal.push_back("saved " + std::string(key) + " " +
                            std::to_string(SettingsCodec::decode(bytes)->borderWidth));
        return std::nullopt;
    }

private:
    std::vector<std::string>& m_journal;
};

class SettingsStoreTest : public testing::Test {
protected:
    FakeUserDefaults defaults;

    Settings loaded(const std::string& stored)
    {
        defaults.stored[kKey] = stored;
        return SettingsStore(defaults).settings();
    }

    Settings storedSettings() { return SettingsCodec::decode(defaults.stored.at(kKey)).value(); }

    static Settings withBorderWidth(double width)
    {
        Settings settings;
        settings.borderWidth = width;
        return settings;
    }
};

TEST_F(SettingsStoreTest, nothing_stored_gives_the_defaults_and_writes_nothing)
{
    const SettingsStore store(defaults);
    EXPECT_EQ(store.settings(), Settings::defaults());
    EXPECT_EQ(defaults.reads, std::vector<std::string>{kKey});
    EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(SettingsStoreTest, a_partial_record_is_completed_by_the_defaults)
{
    EXPECT_EQ(loaded(R"({"borderWidth":5})"), withBorderWidth(5));
}

TEST_F(SettingsStoreTest, null_keeps_one_default_and_every_other_stored_value)
{
    EXPECT_EQ(loaded(R"({"glowOpacity":null,"borderWidth":5})"), withBorderWidth(5));
}

TEST_F(SettingsStoreTest, a_record_that_does_not_decode_gives_the_defaults_and_stays_until_the_next_save)
{
    for (const char* bad :
         {R"({"borderWidth":5,"dimScope":"someWindows"})", R"({"borderWidth":5,"borderColor":{"useAccent":false}})",
          R"({"borderWidth":"5"})", "not json", ""}) {
        defaults.stored[kKey] = bad;
        SettingsStore store(defaults);
        EXPECT_EQ(store.settings(), Settings::defaults()) << bad;
        EXPECT_EQ(defaults.stored[kKey], bad);
        store.setSettings(Settings::defaults());
        EXPECT_EQ(storedSettings(), Settings::defaults());
    }
}

TEST_F(SettingsStoreTest, the_stored_record_is_read_once)
{
    SettingsStore store(defaults);
    defaults.stored[kKey] = R"({"borderWidth":5})";
    EXPECT_EQ(store.settings(), Settings::defaults());
    EXPECT_EQ(defaults.reads.size(), 1U);
}

TEST_F(SettingsStoreTest, a_write_is_announced_then_in_place_and_delivered_then_saved)
{
    std::vector<std::string> journal;
    WatchedDefaults watched(journal);
    SettingsStore store(watched);
    const auto width = [&] { return std::to_string(store.settings().borderWidth); };
    const auto announced = store.onWillChange([&] { journal.push_back("will change " + width()); });
    const auto delivered = store.subscribe([&](const Settings& settings) {
        journal.push_back("delivered " + std::to_string(settings.borderWidth) + " in place " + width());
    });
    journal.clear();
    store.setSettings(withBorderWidth(5));
    EXPECT_EQ(journal, (std::vector<std::string>{"will change 3.000000", "delivered 5.000000 in place 5.000000",
                                                 "saved Haloric.settings.v1 5.000000"}));
    journal.clear();
    store.setSettings(withBorderWidth(5));
    EXPECT_EQ(journal, (std::vector<std::string>{"will change 5.000000", "delivered 5.000000 in place 5.000000",
                                                 "saved Haloric.settings.v1 5.000000"}))
        << "an equal record is a write like any other";
}

TEST_F(SettingsStoreTest, a_subscriber_gets_the_current_record_at_once)
{
    SettingsStore store(defaults);
    store.setSettings(withBorderWidth(5));
    std::vector<double> widths;
    const auto subscription = store.subscribe([&](const Settings& s) { widths.push_back(s.borderWidth); });
    EXPECT_EQ(widths, std::vector{5.0});
}

TEST_F(SettingsStoreTest, a_cancelled_subscription_is_not_called_and_may_outlive_the_store)
{
    auto store = std::make_unique<SettingsStore>(defaults);
    int calls = 0;
    auto over = store->subscribe([&](const Settings&) { ++calls; });
    const auto outliving = store->onWillChange([] {});
    over.reset();
    store->setSettings(withBorderWidth(5));
    EXPECT_EQ(calls, 1);
    store.reset();
}

TEST_F(SettingsStoreTest, a_handler_keeps_its_state_between_calls)
{
    SettingsStore store(defaults);
    std::vector<int> counts;
    const auto subscription = store.subscribe([&, count = 0](const Settings&) mutable { counts.push_back(++count); });
    store.setSettings(withBorderWidth(5));
    EXPECT_EQ(counts, (std::vector{1, 2}));
}

TEST_F(SettingsStoreTest, a_write_through_a_field_is_one_write_of_the_record)
{
    SettingsStore store(defaults);
    std::vector<Settings> delivered;
    const auto subscription = store.subscribe([&](const Settings& s) { delivered.push_back(s); });
    store.update([](Settings& s) {
        s.glowColor.custom.r = 0.25;
        s.glowColor.useAccent = false;
    });
    ASSERT_EQ(delivered.size(), 2U);
    EXPECT_EQ(delivered.back().glowColor, (EffectColor{false, {0.25, 0.52, 1.0, 1.0}}));
    EXPECT_EQ(defaults.writes.size(), 1U);
    EXPECT_EQ(storedSettings(), delivered.back());
}

TEST_F(SettingsStoreTest, what_is_saved_is_loaded_again)
{
    Settings settings = withBorderWidth(1.0 / 3);
    settings.dimApps = {"org.example.a", "org.example.b"};
    settings.dimScope = DimScope::selectedApps;
    SettingsStore(defaults).setSettings(settings);
    EXPECT_EQ(SettingsStore(defaults).settings(), settings);
}

TEST_F(SettingsStoreTest, a_record_that_cannot_be_encoded_is_in_force_but_leaves_the_stored_one)
{
    SettingsStore store(defaults);
    store.setSettings(withBorderWidth(5));
    const std::string before = defaults.stored[kKey];
    int deliveries = 0;
    const auto subscription = store.subscribe([&](const Settings&) { ++deliveries; });

    store.setSettings(withBorderWidth(std::numeric_limits<double>::infinity()));
    EXPECT_EQ(store.settings().borderWidth, std::numeric_limits<double>::infinity());
    store.update([](Settings& s) {
        s.borderWidth = 5;
        s.dimApps = {"\xff"};
    });
    EXPECT_EQ(deliveries, 3);
    EXPECT_EQ(defaults.writes.size(), 1U);
    EXPECT_EQ(defaults.stored[kKey], before);
}

TEST_F(SettingsStoreTest, a_record_that_cannot_be_stored_stays_in_force)
{
    SettingsStore store(defaults);
    defaults.refusal = kFull;
    store.setSettings(withBorderWidth(5));
    EXPECT_EQ(store.settings(), withBorderWidth(5));
}

TEST_F(SettingsStoreTest, the_reason_why_a_write_is_not_saved_is_told_until_one_is)
{
    SettingsStore store(defaults);
    std::vector<std::string> told;
    const auto changes = store.onSaveErrorChange([&] {
        const auto& error = store.saveError();
        told.push_back(error ? error->localizedDescription : "saved");
    });
    store.setSettings(withBorderWidth(5));
    EXPECT_EQ(store.saveError(), std::nullopt);
    defaults.refusal = kFull;
    store.setSettings(withBorderWidth(6));
    EXPECT_EQ(store.saveError(), kFull);
    store.setSettings(withBorderWidth(7));
    store.setSettings(withBorderWidth(std::numeric_limits<double>::infinity()));
    defaults.refusal.reset();
    store.setSettings(withBorderWidth(8));
    EXPECT_EQ(told, (std::vector<std::string>{"The disk is full.",
                                              "The settings hold a number or a name that cannot be stored.", "saved"}));
}

} // namespace
} // namespace haloric
