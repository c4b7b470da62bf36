#include "menubar/HotkeyManager.h"

#include "fakes/FakeHotkeys.h"

#include <memory>

namespace haloric {
namespace {

using Calls = std::vector<std::string>;

class HotkeyManagerTest : public testing::Test {
protected:
    HotkeyManagerTest()
    {
        manager->onTrigger = [this] { ++triggers; };
    }

    FakeHotkeys hotkeys;
    std::unique_ptr<HotkeyManager> manager = std::make_unique<HotkeyManager>(hotkeys);
    int triggers = 0;
};

TEST_F(HotkeyManagerTest, nothing_is_registered_at_first)
{
    EXPECT_TRUE(hotkeys.calls.empty());
    EXPECT_FALSE(manager->isRegistered());
}

TEST_F(HotkeyManagerTest, enabling_installs_the_handler_and_then_registers_the_hotkey)
{
    manager->enable();
    EXPECT_EQ(hotkeys.calls, (Calls{"install 1", "register 2"}));
    EXPECT_TRUE(manager->isRegistered());
}

TEST_F(HotkeyManagerTest, the_hotkey_is_control_option_command_f)
{
    manager->enable();
    ASSERT_EQ(hotkeys.registrations.size(), 1U);
    const auto& [hotkey, options] = hotkeys.registrations.front();
    EXPECT_EQ(hotkey.keyCode, 3U);
    EXPECT_EQ(hotkey.modifiers, 6400U);
    EXPECT_EQ(hotkey.signature, std::uint32_t{'H'} << 24 | std::uint32_t{'L'} << 16 | std::uint32_t{'R'} << 8 | 'C');
    EXPECT_EQ(hotkey.number, 1U);
    EXPECT_EQ(options, 0U);
}

TEST_F(HotkeyManagerTest, the_handler_is_for_hotkeys_that_are_pressed)
{
    manager->enable();
    const std::uint32_t keyboard =
        std::uint32_t{'k'} << 24 | std::uint32_t{'e'} << 16 | std::uint32_t{'y'} << 8 | std::uint32_t{'b'};
    EXPECT_EQ(hotkeys.handledTypes, (std::vector<HotkeyEventType>{{keyboard, 5}}));
}

TEST_F(HotkeyManagerTest, enabling_twice_registers_once)
{
    manager->enable();
    manager->enable();
    EXPECT_EQ(hotkeys.calls, (Calls{"install 1", "register 2"}));
}

TEST_F(HotkeyManagerTest, disabling_unregisters_the_hotkey_and_then_removes_the_handler)
{
    manager->enable();
    hotkeys.calls.clear();
    manager->disable();
    EXPECT_EQ(hotkeys.calls, (Calls{"unregister 2", "remove 1"}));
    EXPECT_FALSE(manager->isRegistered());
}

TEST_F(HotkeyManagerTest, disabling_when_nothing_is_registered_does_nothing)
{
    manager->disable();
    EXPECT_TRUE(hotkeys.calls.empty());
    manager->enable();
    manager->disable();
    hotkeys.calls.clear();
    manager->disable();
    EXPECT_TRUE(hotkeys.calls.empty());
}

TEST_F(HotkeyManagerTest, it_can_be_switched_on_again)
{
    manager->enable();
    manager->disable();
    manager->enable();
    EXPECT_EQ(hotkeys.registeredCount(), 1U);
    EXPECT_EQ(hotkeys.handlerCount(), 1U);
    hotkeys.press();
    EXPECT_EQ(triggers, 1);
}

TEST_F(HotkeyManagerTest, each_press_triggers_once_and_is_consumed)
{
    manager->enable();
    EXPECT_EQ(hotkeys.press(), std::vector<std::int32_t>{0});
    EXPECT_EQ(triggers, 1);
    hotkeys.press();
    EXPECT_EQ(triggers, 2);
}

TEST_F(HotkeyManagerTest, a_press_without_a_trigger_is_consumed_as_well)
{
    manager->onTrigger = nullptr;
    manager->enable();
    EXPECT_EQ(hotkeys.press(), std::vector<std::int32_t>{0});
}

TEST_F(HotkeyManagerTest, a_press_after_the_manager_is_destroyed_is_consumed_and_triggers_nothing)
{
    manager->enable();
    manager.reset();
    EXPECT_EQ(hotkeys.press(), std::vector<std::int32_t>{0});
    EXPECT_EQ(triggers, 0);
}

TEST_F(HotkeyManagerTest, a_trigger_may_replace_itself)
{
    manager->onTrigger = [this] { manager->onTrigger = [this] { triggers += 10; }; };
    manager->enable();
    hotkeys.press();
    hotkeys.press();
    EXPECT_EQ(triggers, 10);
}

TEST_F(HotkeyManagerTest, a_combination_that_another_program_has_fails_in_silence)
{
    hotkeys.isTaken = true;
    manager->enable();
    EXPECT_FALSE(manager->isRegistered());
    hotkeys.calls.clear();
    manager->disable();
    EXPECT_EQ(hotkeys.calls, Calls{"remove 1"}); // there is no hotkey to unregister
    hotkeys.isTaken = false;
    manager->enable();
    EXPECT_TRUE(manager->isRegistered());
    hotkeys.press();
    EXPECT_EQ(triggers, 1);
}

TEST_F(HotkeyManagerTest, a_combination_that_has_become_free_is_registered_with_the_handler_that_is_there)
{
    hotkeys.isTaken = true;
    manager->enable();
    hotkeys.isTaken = false;
    manager->enable();
    hotkeys.press();
    EXPECT_EQ(triggers, 1);
    manager->disable();
    EXPECT_EQ(hotkeys.registeredCount(), 0U);
    EXPECT_EQ(hotkeys.handlerCount(), 0U);
}

TEST_F(HotkeyManagerTest, with_a_refused_handler_only_the_hotkey_is_unregistered)
{
    hotkeys.refusesHandlers = true;
    manager->enable();
    EXPECT_EQ(hotkeys.calls, (Calls{"install 1", "register 2"}));
    EXPECT_TRUE(manager->isRegistered());
    hotkeys.calls.clear();
    manager->disable();
    EXPECT_EQ(hotkeys.calls, Calls{"unregister 2"}); // there is no handler to remove
    EXPECT_FALSE(manager->isRegistered());
}

TEST_F(HotkeyManagerTest, a_task_that_replaces_itself_lives_until_it_returns)
{
    auto mark = std::make_shared<int>(0);
    bool alive = false;
    manager->onTrigger = [this, mark, &alive] {
        const std::weak_ptr<int> self = mark;
        manager->onTrigger = nullptr;
        alive = !self.expired();
    };
    mark.reset();
    manager->enable();
    hotkeys.press();
    EXPECT_TRUE(alive);
}

} // namespace
} // namespace haloric
