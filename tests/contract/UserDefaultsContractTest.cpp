#include "contract/HostContract.h"
#include "platform/UserDefaults.h"

namespace haloric {
namespace {

class UserDefaultsContract : public HostContract {
protected:
    UserDefaults& defaults = host->userDefaults();
};

TEST_P(UserDefaultsContract, a_key_without_a_value_is_absent)
{
    EXPECT_EQ(defaults.data("contract.none"), std::nullopt);
    EXPECT_EQ(host->storedData("contract.none"), std::nullopt);
}

TEST_P(UserDefaultsContract, every_byte_comes_back_and_is_stored)
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.push_back(static_cast<char>(byte));
    defaults.setData("contract.bytes", bytes);

    EXPECT_EQ(defaults.data("contract.bytes"), bytes);
    EXPECT_EQ(host->storedData("contract.bytes"), bytes);
}

TEST_P(UserDefaultsContract, a_value_replaces_the_previous_one_as_a_whole)
{
    defaults.setData("contract.key", "a long value");
    defaults.setData("contract.key", "short");

    EXPECT_EQ(defaults.data("contract.key"), "short");
    EXPECT_EQ(host->storedData("contract.key"), "short");
}

TEST_P(UserDefaultsContract, an_empty_value_is_a_value)
{
    defaults.setData("contract.empty", "");

    EXPECT_EQ(defaults.data("contract.empty"), "");
    EXPECT_EQ(host->storedData("contract.empty"), "");
}

TEST_P(UserDefaultsContract, keys_are_independent_and_case_sensitive)
{
    defaults.setData("contract.key", "1");
    defaults.setData("contract.Key", "2");
    defaults.setData("contract.key.more", "3");

    EXPECT_EQ(defaults.data("contract.key"), "1");
    EXPECT_EQ(defaults.data("contract.Key"), "2");
    EXPECT_EQ(defaults.data("contract.key.more"), "3");
    EXPECT_EQ(defaults.data("contract"), std::nullopt);
}

TEST_P(UserDefaultsContract, a_large_value_comes_back)
{
    const std::string bytes(std::size_t{1} << 20, '\x7f');
    defaults.setData("contract.large", bytes);

    EXPECT_EQ(defaults.data("contract.large"), bytes);
}

TEST_P(UserDefaultsContract, the_caller_may_change_its_bytes_after_storing_them)
{
    std::string bytes = "before";
    defaults.setData("contract.copy", bytes);
    bytes = "after!";

    EXPECT_EQ(defaults.data("contract.copy"), "before");
}

TEST_P(UserDefaultsContract, the_last_of_many_values_is_stored)
{
    for (int value = 0; value <= 500; ++value)
        defaults.setData("contract.dragged", std::to_string(value));

    EXPECT_EQ(defaults.data("contract.dragged"), "500");
    EXPECT_EQ(host->storedData("contract.dragged"), "500");
}

INSTANTIATE_TEST_SUITE_P(Hosts, UserDefaultsContract, testing::ValuesIn(contractHosts()), contractHostName);

} // namespace
} // namespace haloric
