#include "hosts/x11/windows/X11ApplicationCatalog.h"

#include "hosts/linux/files/DesktopEntries.h"

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <unistd.h>

namespace haloric {
namespace {

constexpr ProcessID kEditor{100};
constexpr ProcessID kPanel{200};

// GIO looks at the environment once, so the entries are there before the first test.
class InstalledApplications : public testing::Environment {
public:
    void SetUp() override
    {
        setenv("XDG_DATA_HOME", s_folder.c_str(), 1);
        setenv("XDG_DATA_DIRS", (s_folder / "none").c_str(), 1);
        std::setlocale(LC_ALL, "C.UTF-8");
        install("org.test.Editor.desktop", "Name=The Editor\nIcon=editor-icon");
        install("tools/org.test.Tool.desktop", "Name=Tool\nIcon=/opt/tool.png");
        install("org.test.Helper.desktop", "Name=Helper\nNoDisplay=true");
    }
    void TearDown() override { std::filesystem::remove_all(s_folder); }

    static std::string path(const std::string& file) { return s_folder / "applications" / file; }

private:
    static void install(const std::string& file, const std::string& keys)
    {
        const std::filesystem::path target = path(file);
        std::filesystem::create_directories(target.parent_path());
        std::ofstream(target) << "[Desktop Entry]\nType=Application\nExec=true\n" << keys << '\n';
    }

    static inline const std::filesystem::path s_folder =
        std::filesystem::temp_directory_path() / ("haloric-applications-" + std::to_string(getpid()));
};

[[maybe_unused]] const auto* const installed = testing::AddGlobalTestEnvironment(new InstalledApplications);

struct NamingWorkspace final : Workspace {
    std::optional<FrontmostApplication> frontmostApplication() const override { return {}; }
    std::optional<std::string> bundleIdentifier(ProcessID pid) const override
    {
        return pid == kEditor ? std::optional<std::string>("org.test.Editor") : std::nullopt;
    }
    Subscription observe(WorkspaceNotification, Task) override { return {}; }
    void openURL(std::string_view) override {}
};

struct X11ApplicationCatalogTest : testing::Test {
    X11ClientTable clients;
    NamingWorkspace workspace;
    X11ApplicationCatalog catalog{clients, workspace};
    std::vector<xcb_window_t> windows;

    void addWindow(ProcessID pid, X11WindowType type)
    {
        X11ClientRecord record;
        record.client.window = static_cast<xcb_window_t>(windows.size() + 1);
        record.client.pid = pid;
        record.client.type = type;
        clients.store(record);
        windows.push_back(record.client.window);
        clients.setStacking(windows);
    }
};

TEST_F(X11ApplicationCatalogTest, a_process_with_an_ordinary_window_is_a_regular_application)
{
    addWindow(kEditor, X11WindowType::utility);
    addWindow(kEditor, X11WindowType::normal);
    addWindow(kPanel, X11WindowType::dock);
    const RunningApplication editor{ActivationPolicy::regular, "org.test.Editor"};
    const RunningApplication panel{ActivationPolicy::accessory, std::nullopt};
    EXPECT_THAT(catalog.runningApplications(), testing::UnorderedElementsAre(editor, panel));
}

TEST_F(X11ApplicationCatalogTest, an_application_is_where_its_desktop_entry_is)
{
    EXPECT_EQ(catalog.applicationPath("org.test.Editor"), InstalledApplications::path("org.test.Editor.desktop"));
    EXPECT_EQ(catalog.applicationPath("org.test.Missing"), std::nullopt);
}

TEST_F(X11ApplicationCatalogTest, the_identifier_leads_to_the_path_and_back)
{
    for (const std::string identifier : {"org.test.Editor", "tools-org.test.Tool", "org.test.Helper"}) {
        const auto path = catalog.applicationPath(identifier);
        ASSERT_TRUE(path) << identifier;
        EXPECT_EQ(catalog.bundleIdentifier(*path), identifier);
    }
    EXPECT_EQ(catalog.bundleIdentifier("/etc/hosts"), std::nullopt);
    EXPECT_EQ(catalog.bundleIdentifier(InstalledApplications::path("missing.desktop")), std::nullopt);
}

TEST_F(X11ApplicationCatalogTest, an_application_is_called_as_its_entry_says_and_a_file_as_it_is)
{
    EXPECT_EQ(catalog.displayName(InstalledApplications::path("org.test.Editor.desktop")), "The Editor");
    EXPECT_EQ(catalog.displayName("/etc/hosts"), "hosts");
}

TEST_F(X11ApplicationCatalogTest, names_are_compared_regardless_of_case)
{
    EXPECT_EQ(catalog.compareLocalizedCaseInsensitive("Editor", "eDITOR"), 0);
    EXPECT_LT(catalog.compareLocalizedCaseInsensitive("alpha", "Beta"), 0);
    EXPECT_GT(catalog.compareLocalizedCaseInsensitive("Gamma", "beta"), 0);
}

TEST_F(X11ApplicationCatalogTest, it_has_the_two_symbols_that_the_program_asks_for)
{
    EXPECT_TRUE(catalog.hasSymbol("app"));
    EXPECT_TRUE(catalog.hasSymbol("minus.circle"));
    EXPECT_FALSE(catalog.hasSymbol("plus"));
}

TEST(DesktopEntryFiles, menus_show_all_applications_but_the_hidden_ones)
{
    const ApplicationFile editor{InstalledApplications::path("org.test.Editor.desktop"), "The Editor", "editor-icon"};
    const ApplicationFile tool{InstalledApplications::path("tools/org.test.Tool.desktop"), "Tool", "/opt/tool.png"};
    EXPECT_THAT(DesktopEntries::shown(), testing::UnorderedElementsAre(editor, tool));
    EXPECT_EQ(DesktopEntries::at(editor.path), editor);
    EXPECT_EQ(DesktopEntries::at("/etc/hosts"), std::nullopt);
}

} // namespace
} // namespace haloric
