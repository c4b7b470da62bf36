// A workspace that a test sets and whose notifications it sends.
#pragma once

#include "foundation/Publisher.h"
#include "platform/Workspace.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace haloric {

class FakeWorkspace final : public Workspace {
public:
    std::optional<FrontmostApplication> frontmost;
    std::map<ProcessID, std::string> bundleIdentifiers;
    mutable std::vector<ProcessID> lookups; // each call of bundleIdentifier
    std::vector<std::string> openedURLs;

    std::optional<FrontmostApplication> frontmostApplication() const override { return frontmost; }

    std::optional<std::string> bundleIdentifier(ProcessID pid) const override
    {
        lookups.push_back(pid);
        const auto found = bundleIdentifiers.find(pid);
        return found == bundleIdentifiers.end() ? std::nullopt : std::optional(found->second);
    }

    Subscription observe(WorkspaceNotification notification, Task handler) override
    {
        return m_publishers[notification].subscribe(std::move(handler));
    }

    void openURL(std::string_view url) override { openedURLs.emplace_back(url); }

    void announce(WorkspaceNotification notification) { m_publishers[notification].publish(); }
    std::size_t observerCount(WorkspaceNotification notification)
    {
        return m_publishers[notification].subscriberCount();
    }

private:
    std::map<WorkspaceNotification, Publisher<>> m_publishers;
};

} // namespace haloric
