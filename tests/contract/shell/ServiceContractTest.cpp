// Hotkeys, the login item, the updater and the catalogue of applications.
#include "contract/shell/ShellContract.h"
#include "platform/ApplicationCatalog.h"
#include "platform/Hotkeys.h"
#include "platform/LoginItemService.h"
#include "platform/UpdaterFramework.h"

#include <algorithm>

namespace haloric {
namespace {

constexpr std::uint32_t kKeyF = 3;
constexpr std::uint32_t kKeyG = 5;
constexpr std::uint32_t kModifiers = HotkeyModifiers::kControl | HotkeyModifiers::kOption | HotkeyModifiers::kCommand;
constexpr std::int32_t kNotHandled = -9874; // with the number of macOS

class HotkeyContract : public ShellContract {
protected:
    static constexpr Hotkey kHotkey{.keyCode = kKeyF, .modifiers = kModifiers, .signature = 0x54455354, .number = 1};

    ContractServices& services = shell->services();
    Hotkeys& hotkeys = services.hotkeys();

    EventHandlerRef installCounter(int& count, std::int32_t result = Hotkeys::kNoError)
    {
        return hotkeys.installEventHandler(Hotkeys::kPressed, [&count, result] {
            ++count;
            return result;
        });
    }

    // The number of calls that a press leads to.
    int callsOf(const Hotkey& combination)
    {
        const int before = presses;
        services.pressKeys(combination);
        shell->turnFor(Seconds(0.05));
        return presses - before;
    }

    int presses = 0;
};

TEST_P(HotkeyContract, a_press_is_reported_once_while_the_combination_is_registered)
{
    const EventHandlerRef handler = installCounter(presses);
    ASSERT_NE(handler, EventHandlerRef::none);
    EXPECT_EQ(callsOf(kHotkey), 0);

    const HotkeyRef hotkey = hotkeys.registerHotkey(kHotkey, 0);
    ASSERT_NE(hotkey, HotkeyRef::none);
    EXPECT_EQ(callsOf(kHotkey), 1);
    EXPECT_EQ(callsOf(kHotkey), 1);
    hotkeys.unregisterHotkey(hotkey);
    EXPECT_EQ(callsOf(kHotkey), 0);
    hotkeys.removeEventHandler(handler);
}

TEST_P(HotkeyContract, other_combinations_are_not_reported)
{
    installCounter(presses);
    const HotkeyRef hotkey = hotkeys.registerHotkey(kHotkey, 0);
    Hotkey otherKey = kHotkey;
    otherKey.keyCode = kKeyG;
    Hotkey fewerModifiers = kHotkey;
    fewerModifiers.modifiers = HotkeyModifiers::kControl;

    EXPECT_EQ(callsOf(otherKey), 0);
    EXPECT_EQ(callsOf(fewerModifiers), 0);
    EXPECT_EQ(callsOf(kHotkey), 1);
    hotkeys.unregisterHotkey(hotkey);
}

TEST_P(HotkeyContract, the_same_combination_cannot_be_registered_twice)
{
    installCounter(presses);
    const HotkeyRef first = hotkeys.registerHotkey(kHotkey, 0);
    ASSERT_NE(first, HotkeyRef::none);
    EXPECT_EQ(hotkeys.registerHotkey(kHotkey, 0), HotkeyRef::none);
    EXPECT_EQ(callsOf(kHotkey), 1);

    hotkeys.unregisterHotkey(first);
    const HotkeyRef again = hotkeys.registerHotkey(kHotkey, 0);
    EXPECT_NE(again, HotkeyRef::none);
    hotkeys.unregisterHotkey(again);
}

TEST_P(HotkeyContract, the_newest_handler_is_called_first_and_may_consume_the_press)
{
    int newer = 0;
    int newest = 0;
    installCounter(presses);
    const EventHandlerRef consuming = installCounter(newer);
    installCounter(newest, kNotHandled);
    const HotkeyRef hotkey = hotkeys.registerHotkey(kHotkey, 0);

    EXPECT_EQ(callsOf(kHotkey), 0);
    EXPECT_EQ(newer, 1);
    EXPECT_EQ(newest, 1);
    hotkeys.removeEventHandler(consuming);
    EXPECT_EQ(callsOf(kHotkey), 1);
    EXPECT_EQ(newer, 1);
    EXPECT_EQ(newest, 2);
    hotkeys.unregisterHotkey(hotkey);
}

TEST_P(HotkeyContract, handlers_of_other_events_are_not_called)
{
    hotkeys.installEventHandler({.eventClass = Hotkeys::kPressed.eventClass, .kind = 6}, [this] {
        ++presses;
        return Hotkeys::kNoError;
    });
    const HotkeyRef hotkey = hotkeys.registerHotkey(kHotkey, 0);

    services.pressKeys({.keyCode = kKeyG, .modifiers = kModifiers});
    shell->turnFor(Seconds(0.05));
    EXPECT_EQ(presses, 0);
    hotkeys.unregisterHotkey(hotkey);
}

TEST_P(HotkeyContract, a_handler_may_remove_itself_and_the_hotkey)
{
    EndingItself ending;
    EventHandlerRef handler = EventHandlerRef::none;
    HotkeyRef hotkey = HotkeyRef::none;
    ending.end = [&] {
        hotkeys.removeEventHandler(handler);
        hotkeys.unregisterHotkey(hotkey);
    };
    handler = hotkeys.installEventHandler(Hotkeys::kPressed, [call = ending.callback()] {
        call();
        return Hotkeys::kNoError;
    });
    hotkey = hotkeys.registerHotkey(kHotkey, 0);

    services.pressKeys(kHotkey);
    EXPECT_TRUE(shell->waitUntil([&] { return ending.calls == 1; }));
    EXPECT_TRUE(ending.keepsCaptures);
    services.pressKeys(kHotkey);
    shell->turnFor(Seconds(0.05));
    EXPECT_EQ(ending.calls, 1);
}

class LoginItemContract : public ShellContract {
protected:
    LoginItemService& loginItems = shell->services().loginItems();
};

TEST_P(LoginItemContract, registering_starts_the_program_at_login_until_it_is_unregistered)
{
    EXPECT_NE(loginItems.status(), LoginItemStatus::enabled);
    EXPECT_FALSE(shell->services().startsAtLogin());

    EXPECT_EQ(loginItems.registerApplication(), std::nullopt);
    EXPECT_EQ(loginItems.status(), LoginItemStatus::enabled);
    EXPECT_TRUE(shell->services().startsAtLogin());

    EXPECT_EQ(loginItems.unregisterApplication(), std::nullopt);
    EXPECT_NE(loginItems.status(), LoginItemStatus::enabled);
    EXPECT_FALSE(shell->services().startsAtLogin());
}

TEST_P(LoginItemContract, registering_again_changes_nothing)
{
    EXPECT_EQ(loginItems.registerApplication(), std::nullopt);
    EXPECT_EQ(loginItems.registerApplication(), std::nullopt);
    EXPECT_EQ(loginItems.status(), LoginItemStatus::enabled);
    EXPECT_EQ(loginItems.unregisterApplication(), std::nullopt);
    EXPECT_FALSE(shell->services().startsAtLogin());
}

class UpdaterContract : public ShellContract, protected UpdaterDelegate {
protected:
    UpdaterFramework& framework = shell->services().updaterFramework();
};

TEST_P(UpdaterContract, a_check_that_the_user_asks_for_shows_its_result)
{
    const auto controller = framework.makeStandardController(true, *this);
    if (!controller)
        GTEST_SKIP() << "this host has no framework";
    for (int check = 0; check < 2; ++check) {
        controller->checkForUpdates();
        EXPECT_TRUE(shell->services().confirmsUpdateResult());
    }
}

TEST_P(UpdaterContract, only_the_caller_owns_the_controller)
{
    auto controller = framework.makeStandardController(true, *this);
    if (!controller)
        GTEST_SKIP() << "this host has no framework";
    const std::weak_ptr<UpdaterController> watched = controller;
    controller->checkForUpdates();
    controller.reset();

    EXPECT_TRUE(watched.expired());
    shell->turnFor(Seconds(0.1));
}

class CatalogContract : public ShellContract {
protected:
    static constexpr const char* kIdentifier = "org.example.contract.Editor";

    ApplicationCatalog& catalog = shell->services().applicationCatalog();
};

TEST_P(CatalogContract, an_installed_application_is_found_by_identifier_and_by_path)
{
    const std::string path = shell->services().install(kIdentifier, "ContractEditor");

    EXPECT_TRUE(shell->waitUntil([&] { return catalog.applicationPath(kIdentifier) == path; }));
    EXPECT_EQ(catalog.bundleIdentifier(path), kIdentifier);
    EXPECT_NE(catalog.displayName(path).find("ContractEditor"), std::string::npos);
}

TEST_P(CatalogContract, a_missing_application_has_neither_path_nor_identifier)
{
    EXPECT_EQ(catalog.applicationPath("org.example.contract.Missing"), std::nullopt);
    EXPECT_EQ(catalog.bundleIdentifier("/nowhere/Missing.app"), std::nullopt);
    EXPECT_FALSE(catalog.displayName("/nowhere/Missing.app").empty());
}

TEST_P(CatalogContract, a_running_application_is_listed_as_a_regular_one)
{
    shell->services().install(kIdentifier, "ContractEditor");
    shell->services().start(kIdentifier);

    const RunningApplication expected{ActivationPolicy::regular, kIdentifier};
    EXPECT_TRUE(shell->waitUntil([&] { return std::ranges::count(catalog.runningApplications(), expected) == 1; }));
}

TEST_P(CatalogContract, names_are_compared_without_case)
{
    EXPECT_EQ(catalog.compareLocalizedCaseInsensitive("Editor", "eDITOR"), 0);
    EXPECT_LT(catalog.compareLocalizedCaseInsensitive("editor", "Terminal"), 0);
    EXPECT_GT(catalog.compareLocalizedCaseInsensitive("terminal", "Editor"), 0);
    EXPECT_LT(catalog.compareLocalizedCaseInsensitive("", "a"), 0);
}

TEST_P(CatalogContract, the_symbols_of_the_program_exist_and_others_do_not)
{
    EXPECT_TRUE(catalog.hasSymbol("app"));
    EXPECT_TRUE(catalog.hasSymbol("minus.circle"));
    EXPECT_FALSE(catalog.hasSymbol("no.such.symbol.of.the.contract"));
}

INSTANTIATE_TEST_SUITE_P(Hosts, HotkeyContract, testing::ValuesIn(contractShells()), contractShellName);
INSTANTIATE_TEST_SUITE_P(Hosts, LoginItemContract, testing::ValuesIn(contractShells()), contractShellName);
INSTANTIATE_TEST_SUITE_P(Hosts, UpdaterContract, testing::ValuesIn(contractShells()), contractShellName);
INSTANTIATE_TEST_SUITE_P(Hosts, CatalogContract, testing::ValuesIn(contractShells()), contractShellName);

} // namespace
} // namespace haloric
