// The applications that have windows, and those that have a desktop entry, for lists of them. An application's path is
// that of its desktop entry; its identifier is the workspace's. Main thread.
#pragma once

#include "hosts/x11/windows/X11ClientTable.h"
#include "platform/ApplicationCatalog.h"
#include "platform/Workspace.h"

namespace haloric {

class X11ApplicationCatalog final : public ApplicationCatalog {
public:
    // Both outlive it.
    X11ApplicationCatalog(const X11ClientTable& clients, const Workspace& workspace)
        : m_clients(clients),
          m_workspace(workspace)
    {
    }

    // A process with windows is regular when one of them is a normal one or a dialog; one with only panels and the like
    // is an accessory.
    std::vector<RunningApplication> runningApplications() const override;

    std::optional<std::string> applicationPath(std::string_view bundleIdentifier) const override;
    std::optional<std::string> bundleIdentifier(const std::string& applicationPath) const override;

    // The name that the entry has in the user's language; of any other file, its name in the folder.
    std::string displayName(const std::string& path) const override;

    int compareLocalizedCaseInsensitive(const std::string& a, const std::string& b) const override;

    // "app" and "minus.circle".
    bool hasSymbol(std::string_view name) const override;

private:
    const X11ClientTable& m_clients;
    const Workspace& m_workspace;
};

} // namespace haloric
