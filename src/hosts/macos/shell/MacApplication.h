// The NSApplication and its delegate, with what belongs to the application as a whole: its main menu, the focus that
// returns to others, and the activity that keeps macOS from slowing its timers.
#pragma once

#include "hosts/macos/shell/MacFocusReturn.h"
#include "platform/Application.h"

#import <AppKit/AppKit.h>

@class MacApplicationDelegate;

namespace haloric {

class MacApplication final : public Application {
public:
    // Makes the NSApplication, which every other adapter of this host needs.
    MacApplication();
    ~MacApplication() override;
    MacApplication(const MacApplication&) = delete;
    MacApplication& operator=(const MacApplication&) = delete;

    void setDelegate(ApplicationDelegate* delegate) override;
    void setActivationPolicy(ActivationPolicy policy) override;
    void activateIgnoringOtherApps() override;
    void run() override;
    void terminate() override;
    ProcessID processID() const override;
    std::optional<OwnWindow> keyWindow() const override;
    std::optional<OwnWindow> mainWindow() const override;

private:
    NSApplication* const m_application;
    MacApplicationDelegate* m_delegate; // kept here, because NSApplication keeps it weakly
    const id<NSObject> m_activity;
    MacFocusReturn m_focusReturn;
};

} // namespace haloric
