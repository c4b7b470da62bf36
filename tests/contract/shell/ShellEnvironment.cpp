// Ends what the hosts of a test program share, while the process still runs its tests.
#include "contract/shell/ContractShell.h"

#include <gtest/gtest.h>

namespace haloric {
namespace {

class ShellEnvironment final : public testing::Environment {
public:
    void TearDown() override { endContractShells(); }
};

[[maybe_unused]] const testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(new ShellEnvironment);

} // namespace
} // namespace haloric
