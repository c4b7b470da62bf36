// The settings window, as the status bar controller opens it.
#include "unit/menubar/StatusBarFixture.h"

namespace haloric {
namespace {

class SettingsWindowTest : public StatusBarFixture {
protected:
    SettingsWindowTest() { make(); }
};

TEST_F(SettingsWindowTest, it_is_not_made_until_it_is_opened)
{
    runLoop.runPosted();
    EXPECT_TRUE(formWindows.windows.empty());
}

TEST_F(SettingsWindowTest, it_has_its_title_style_and_size_and_is_not_released_when_closed)
{
    controller->openSettings();
    EXPECT_EQ(window().configuration, (FormWindowConfiguration{"Haloric Settings", 7, false, {440, 560}}));
    EXPECT_FALSE(window().form.sections.empty());
}

TEST_F(SettingsWindowTest, it_is_made_and_centred_and_ordered_front_after_the_application)
{
    int activationsBeforeMaking = -1;
    int activationsBefore = 0;
    formWindows.whileMaking = [&] { activationsBeforeMaking = application.activations; };
    formWindows.whileOrderingFront = [&] { activationsBefore = application.activations; };
    controller->openSettings();
    EXPECT_EQ(window().calls, (Calls{"center", "makeKeyAndOrderFront"}));
    EXPECT_EQ(activationsBeforeMaking, 0);
    EXPECT_EQ(activationsBefore, 1);
}

TEST_F(SettingsWindowTest, opening_it_twice_shows_the_same_window_where_it_was)
{
    controller->openSettings();
    window().visible = false; // the user has closed it
    ASSERT_TRUE(statusItems.choose("Settings…"));
    EXPECT_EQ(formWindows.windows.size(), 1U);
    EXPECT_EQ(window().calls, (Calls{"center", "makeKeyAndOrderFront", "makeKeyAndOrderFront"}));
    EXPECT_TRUE(window().visible);
    EXPECT_EQ(application.activations, 2);
}

TEST_F(SettingsWindowTest, its_form_follows_the_settings)
{
    controller->openSettings();
    store.update([](Settings& settings) { settings.hotkeyEnabled = true; });
    EXPECT_EQ(window().calls.back(), "setForm");
    EXPECT_TRUE(toggle("Open Settings with ⌃⌥⌘F from anywhere").isOn);
}

TEST_F(SettingsWindowTest, while_it_is_closed_no_form_is_made_and_it_reopens_with_the_current_one)
{
    controller->openSettings();
    window().visible = false;
    const auto calls = window().calls.size();
    const int questions = accessibility.trustQuestions;
    for (int step = 0; step < 3; ++step)
        store.update([](Settings& settings) { settings.hotkeyEnabled = true; });
    EXPECT_EQ(window().calls.size(), calls);
    EXPECT_EQ(accessibility.trustQuestions, questions);
    bool shownWhenOrderedFront = false;
    formWindows.whileOrderingFront = [&] {
        shownWhenOrderedFront = toggle("Open Settings with ⌃⌥⌘F from anywhere").isOn;
    };
    controller->openSettings();
    EXPECT_TRUE(shownWhenOrderedFront);
    EXPECT_EQ(std::ranges::count(window().calls, "setForm"), 1);
}

TEST_F(SettingsWindowTest, a_drag_of_a_slider_asks_the_system_only_for_the_trust_that_the_form_shows)
{
    for (const char* application : {"org.example.mail", "org.example.notes", "org.example.music"})
        catalog.launch(application, application);
    store.update([](Settings& settings) {
        settings.dimScope = DimScope::selectedApps;
        settings.dimApps = {"org.example.mail", "org.example.notes"};
    });
    controller->openSettings();
    runLoop.runPosted();
    loginItems.questions = catalog.questions = accessibility.trustQuestions = 0;
    item().calls.clear();
    constexpr int kSteps = 100;
    for (int step = 0; step < kSteps; ++step) {
        store.update([&](Settings& settings) { settings.glowRadius = step; });
        store.update([&](Settings& settings) { settings.glowRadius = step + 0.5; });
        runLoop.runPosted();
    }
    EXPECT_EQ(loginItems.questions, 0);
    EXPECT_EQ(catalog.questions, 0);
    EXPECT_EQ(accessibility.trustQuestions, 2 * kSteps) << "one for each form";
    EXPECT_EQ(std::ranges::count(item().calls, "menuItemsChanged"), kSteps) << "one for each turn of the loop";
}

TEST_F(SettingsWindowTest, what_is_changed_in_it_shows_the_next_time_the_menu_opens)
{
    controller->openSettings();
    toggle("Pulse when focus changes or Space switches").set(false);
    EXPECT_FALSE(statusItems.item("Pulse on focus change").isOn);
}

TEST_F(SettingsWindowTest, its_login_switch_begins_with_the_state_in_force)
{
    loginItems.currentStatus = LoginItemStatus::enabled;
    controller->openSettings();
    EXPECT_TRUE(toggle("Launch at login").isOn);
}

TEST_F(SettingsWindowTest, it_is_destroyed_with_its_controller)
{
    controller->openSettings();
    controller.reset();
    EXPECT_FALSE(window().alive);
    store.update([](Settings& settings) { settings.glowEnabled = false; });
    EXPECT_EQ(window().calls.back(), "makeKeyAndOrderFront");
}

} // namespace
} // namespace haloric
