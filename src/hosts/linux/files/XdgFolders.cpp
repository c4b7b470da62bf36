#include "hosts/linux/files/XdgFolders.h"

#include "platform/Processes.h"

namespace haloric {
namespace {

std::string absolutePathIn(const Processes& processes, const char* variable)
{
    const std::string path = processes.environmentVariable(variable).value_or("");
    return path.starts_with('/') ? path : "";
}

} // namespace

std::string XdgFolders::config(const Processes& processes)
{
    if (const std::string configured = absolutePathIn(processes, "XDG_CONFIG_HOME"); !configured.empty())
        return configured;
    const std::string home = absolutePathIn(processes, "HOME");
    return home.empty() ? "" : home + "/.config";
}

std::string XdgFolders::runtime(const Processes& processes) { return absolutePathIn(processes, "XDG_RUNTIME_DIR"); }

} // namespace haloric
