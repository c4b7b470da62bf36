#include "settings/AccessibilityGrant.h"

#include "fakes/FakeAccessibility.h"
#include "fakes/FakeWorkspace.h"

#include <string>
#include <vector>

namespace haloric {
namespace {

// Records the number of prompts when the URL is opened.
class WatchedWorkspace final : public Workspace {
public:
    explicit WatchedWorkspace(const FakeAccessibility& accessibility) : m_accessibility(accessibility) {}
    std::vector<std::string> opened;
    std::size_t promptsBefore = 0;

    std::optional<FrontmostApplication> frontmostApplication() const override { return std::nullopt; }
    std::optional<std::string> bundleIdentifier(ProcessID) const override { return std::nullopt; }
    Subscription observe(WorkspaceNotification, Task) override { return {}; }
    void openURL(std::string_view url) override
    {
        opened.emplace_back(url);
        promptsBefore = m_accessibility.prompts.size();
    }

private:
    const FakeAccessibility& m_accessibility;
};

TEST(AccessibilityGrantTest, the_system_prompts_first_and_then_the_accessibility_pane_opens)
{
    for (const bool trusted : {false, true}) {
        FakeAccessibility accessibility;
        accessibility.trusted = trusted;
        WatchedWorkspace workspace(accessibility);
        grantAccessibility(accessibility, workspace);
        EXPECT_EQ(accessibility.prompts, std::vector{true});
        EXPECT_EQ(
            workspace.opened,
            std::vector<std::string>{"x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"});
        EXPECT_EQ(workspace.promptsBefore, 1U);
    }
}

} // namespace
} // namespace haloric
