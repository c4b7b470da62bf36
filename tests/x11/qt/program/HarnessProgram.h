// Executes a test's lines: each is a verb and its arguments.
//
//   tray                     creates the status item
//   check TITLE              toggles the check mark of a menu item
//   reveal TITLE             shows a hidden menu item
//   show, center             the form's window
//   width NUMBER, scope N    changes a value of the form, as if another part of the program did
//   color RED GREEN BLUE, close
//   notice TEXT              sets or removes the form's notice
//   well on|off              enables or disables the colour well
//   alert, error, about, choose
//
// Answers start with "= ":
//
//   where NAME               "X Y WIDTH HEIGHT" on the root window, or "nowhere"
//   focus                    the widget with the keyboard focus; empty without it
//   describe NAME            accessible name and description
//   chosen                   the colour in the open colour dialog
//   tooltip ITEM, labels TITLE, available
#pragma once

#include "hosts/linux/loop/LinuxRunLoop.h"
#include "platform/Alerts.h"
#include "platform/FormWindows.h"
#include "platform/Panels.h"
#include "platform/StatusItems.h"
#include "x11/qt/program/HarnessSettings.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace haloric {

class HarnessProgram final : public MenuDelegate {
public:
    struct Dependencies {
        StatusItems& statusItems;
        FormWindows& formWindows;
        Alerts& alerts;
        Panels& panels;
    };

    explicit HarnessProgram(const Dependencies& dependencies);

    // Executes the lines that arrive at the descriptor, until the subscription ends.
    Subscription obey(LinuxRunLoop& runLoop, int descriptor);

private:
    using Verb = std::function<void(const std::string&)>;

    void menuNeedsUpdate() override;
    void addVerbs();
    void addWindowVerbs();
    void addQuestions();
    void obey(const std::string& line);
    MenuItem& itemCalled(const std::string& title);
    FormWindow& window();

    Dependencies m_dependencies;
    HarnessSettings m_settings;
    MenuModel m_menu;
    std::map<std::string, Verb> m_verbs;
    std::string m_unread;
    std::unique_ptr<FormWindow> m_window;
    std::unique_ptr<StatusItem> m_item;
};

} // namespace haloric
