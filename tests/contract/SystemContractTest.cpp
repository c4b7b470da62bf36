// The bundle, processes, the environment and the log.
#include "contract/HostContract.h"
#include "platform/Bundle.h"
#include "platform/Log.h"
#include "platform/Processes.h"

namespace haloric {
namespace {

class SystemContract : public HostContract {};

TEST_P(SystemContract, the_bundle_has_an_absolute_path_without_a_trailing_slash)
{
    const std::string path = host->bundle().path();
    ASSERT_GT(path.size(), 1u);
    EXPECT_EQ(path.front(), '/');
    EXPECT_NE(path.back(), '/');
    EXPECT_EQ(host->bundle().infoString("NoSuchKeyOfTheContract"), std::nullopt);
}

TEST_P(SystemContract, an_existing_program_is_started_and_a_missing_one_is_not)
{
    EXPECT_TRUE(host->processes().launch(host->knownProgram(), {"-c", "exit 0"}));
    EXPECT_FALSE(host->processes().launch(host->unknownProgram(), {}));
}

TEST_P(SystemContract, an_environment_variable_that_is_not_set_is_absent)
{
    EXPECT_EQ(host->processes().environmentVariable("HALORIC_CONTRACT_NOT_SET"), std::nullopt);
}

TEST_P(SystemContract, log_lines_reach_the_log_unchanged)
{
    host->log().line("WindowServer contract: 100 % of it");

    EXPECT_NE(host->loggedText().find("WindowServer contract: 100 % of it"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Hosts, SystemContract, testing::ValuesIn(contractHosts()), contractHostName);

} // namespace
} // namespace haloric
