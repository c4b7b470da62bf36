// The NSApplication and its delegate.
#pragma once

#include "platform/Application.h"

#import <AppKit/AppKit.h>

@class MacApplicationDelegate;

namespace haloric {

class MacApplication final : public Application {
public:
    // Makes the NSApplication, which every other adapter of this host needs.
    MacApplication();

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
};

} // namespace haloric
