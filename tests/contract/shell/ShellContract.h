// The fixture of the contract tests of a host's own user interface: a new one for each test.
#pragma once

#include "contract/EndingItself.h"
#include "contract/shell/ContractShell.h"

#include <gtest/gtest.h>

#include <memory>

namespace haloric {

class ShellContract : public testing::TestWithParam<ContractShellFactory> {
protected:
    std::unique_ptr<ContractShell> shell = GetParam().make();
};

inline std::string contractShellName(const testing::TestParamInfo<ContractShellFactory>& info)
{
    return info.param.name;
}

} // namespace haloric
