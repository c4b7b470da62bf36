#include "hosts/linux/files/XdgFolders.h"

#include "platform/Processes.h"

#include <sstream>

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

std::vector<std::string> XdgFolders::data(const Processes& processes)
{
    std::vector<std::string> folders;
    const std::string home = absolutePathIn(processes, "HOME");
    if (const std::string configured = absolutePathIn(processes, "XDG_DATA_HOME"); !configured.empty())
        folders.push_back(configured);
    else if (!home.empty())
        folders.push_back(home + "/.local/share");
    std::string listed = processes.environmentVariable("XDG_DATA_DIRS").value_or("");
    if (listed.empty())
        listed = "/usr/local/share:/usr/share";
    std::istringstream parts(listed);
    for (std::string folder; std::getline(parts, folder, ':');) {
        if (folder.starts_with('/'))
            folders.push_back(folder);
    }
    return folders;
}

std::string XdgFolders::runtime(const Processes& processes) { return absolutePathIn(processes, "XDG_RUNTIME_DIR"); }

} // namespace haloric
