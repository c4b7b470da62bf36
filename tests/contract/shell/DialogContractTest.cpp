// Alerts and panels.
#include "contract/shell/ShellContract.h"
#include "platform/Alerts.h"
#include "platform/Panels.h"
#include "platform/RunLoop.h"

#include <algorithm>

namespace haloric {
namespace {

using Texts = std::vector<std::string>;

const AlertModel kAlert{.messageText = "The contract needs an answer",
                        .informativeText = "Either will do.",
                        .style = AlertStyle::informational,
                        .buttons = {"Agree", "Later", "Never"}};

class DialogContract : public ShellContract {
protected:
    ContractDialogs& dialogs = shell->dialogs();

    std::int64_t answerTo(const std::string& button)
    {
        dialogs.whenOpen([this, button] { dialogs.press(button); });
        return dialogs.alerts().runModal(kAlert);
    }

    bool aboutShows(const std::string& text)
    {
        return shell->waitUntil([&] {
            return std::ranges::any_of(dialogs.aboutTexts(),
                                       [&](const std::string& shown) { return shown.find(text) != std::string::npos; });
        });
    }
};

TEST_P(DialogContract, an_alert_returns_the_number_of_the_button)
{
    EXPECT_EQ(answerTo("Agree"), Alerts::kFirstButton);
    EXPECT_EQ(answerTo("Later"), Alerts::kFirstButton + 1);
    EXPECT_EQ(answerTo("Never"), Alerts::kFirstButton + 2);
}

TEST_P(DialogContract, an_alert_shows_its_texts_and_its_buttons_in_order)
{
    Texts texts;
    Texts buttons;
    dialogs.whenOpen([&] {
        texts = dialogs.texts();
        buttons = dialogs.buttons();
        dialogs.press("Later");
    });
    dialogs.alerts().runModal(kAlert);

    EXPECT_EQ(texts, (Texts{kAlert.messageText, kAlert.informativeText}));
    EXPECT_EQ(buttons, kAlert.buttons);
}

TEST_P(DialogContract, the_main_loop_runs_while_an_alert_is_open)
{
    int posted = 0;
    int fired = 0;
    bool isOpen = true;
    Subscription timer;
    dialogs.whenOpen([&] {
        shell->runLoop().post([&] { posted += isOpen ? 1 : 0; });
        timer = shell->runLoop().scheduleRepeating(Seconds(0.01), Seconds(0), [&] {
            if (++fired == 3)
                dialogs.press("Agree");
        });
    });
    dialogs.alerts().runModal(kAlert);
    isOpen = false;
    timer.reset();

    EXPECT_EQ(posted, 1);
    EXPECT_GE(fired, 3);
}

TEST_P(DialogContract, an_error_is_shown_until_it_is_confirmed)
{
    Texts texts;
    dialogs.whenOpen([&] {
        texts = dialogs.texts();
        ASSERT_FALSE(dialogs.buttons().empty());
        dialogs.press(dialogs.buttons().front());
    });
    dialogs.alerts().runModalError({.domain = "contract",
                                    .code = 13,
                                    .localizedDescription = "The entry could not be written.",
                                    .localizedRecoverySuggestion = "Look at the folder's permissions."});

    EXPECT_EQ(texts, (Texts{"The entry could not be written.", "Look at the folder's permissions."}));
}

TEST_P(DialogContract, an_open_panel_returns_the_chosen_path_or_none)
{
    const std::string path = shell->services().install("org.example.contract.Choice", "ContractChoice");
    const OpenPanel panel{.directory = "/Applications", .prompt = "Choose"};
    int posted = 0;
    dialogs.whenOpen([&] {
        shell->runLoop().post([&] {
            ++posted;
            dialogs.chooseApplication(path);
        });
    });
    EXPECT_EQ(dialogs.panels().runModalOpenPanel(panel), path);
    EXPECT_EQ(posted, 1);

    dialogs.whenOpen([&] { dialogs.cancelPanel(); });
    EXPECT_EQ(dialogs.panels().runModalOpenPanel(panel), std::nullopt);
}

TEST_P(DialogContract, the_about_panel_opens_without_blocking_and_shows_its_texts)
{
    EXPECT_TRUE(dialogs.aboutTexts().empty());
    dialogs.panels().orderFrontStandardAboutPanel({.applicationName = "Contract",
                                                   .applicationVersion = "2.5",
                                                   .version = "77",
                                                   .credits = "Made for the tests.",
                                                   .creditsFontSize = 11});

    for (const char* text : {"Contract", "2.5", "77", "Made for the tests."})
        EXPECT_TRUE(aboutShows(text)) << text;
}

INSTANTIATE_TEST_SUITE_P(Hosts, DialogContract, testing::ValuesIn(contractShells()), contractShellName);

} // namespace
} // namespace haloric
