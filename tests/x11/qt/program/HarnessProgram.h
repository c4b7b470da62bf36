// Obeys a test: each line is a verb and its arguments.
//
//   tray                     puts an item into the tray
//   check TITLE              turns the mark of an item of the menu
//   reveal TITLE             shows a hidden item of the menu
//   show, center             the form's window
//   width NUMBER, scope N    changes a value behind the user's back
//   well on|off              enables or disables the colour well
//   alert, error, about, choose
//   palette dark|light
//   quit
//
// Answers start with "= ":
//
//   where NAME               "X Y WIDTH HEIGHT" on the root, or "nowhere"
//   focus                    what has the keyboard; nothing without it
//   describe NAME            name and description, as assistive technology reads them
#pragma once

#include "hosts/linux/loop/LinuxRunLoop.h"
#include "platform/Alerts.h"
#include "platform/Application.h"
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
    struct Platform {
        Application& application;
        StatusItems& statusItems;
        FormWindows& formWindows;
        Alerts& alerts;
        Panels& panels;
    };

    explicit HarnessProgram(const Platform& platform);

    // Reads the lines from that descriptor.
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

    Platform m_platform;
    HarnessSettings m_settings;
    MenuModel m_menu;
    std::map<std::string, Verb> m_verbs;
    std::string m_unread;
    std::unique_ptr<FormWindow> m_window;
    std::unique_ptr<StatusItem> m_item;
};

} // namespace haloric
