// An application object whose own windows a test sets. It notes what is called, in order.
#pragma once

#include "platform/Application.h"

#include <string>
#include <vector>

namespace haloric {

class FakeApplication final : public Application {
public:
    ProcessID pid{1};
    std::optional<OwnWindow> key;
    std::optional<OwnWindow> main;

    ApplicationDelegate* delegate = nullptr;
    std::optional<ActivationPolicy> policy;
    int activations = 0;
    bool terminated = false;
    std::vector<std::string> calls;

    void setDelegate(ApplicationDelegate* newDelegate) override
    {
        calls.emplace_back("setDelegate");
        delegate = newDelegate;
    }

    void setActivationPolicy(ActivationPolicy newPolicy) override
    {
        calls.emplace_back("setActivationPolicy");
        policy = newPolicy;
    }

    void activateIgnoringOtherApps() override
    {
        calls.emplace_back("activateIgnoringOtherApps");
        ++activations;
    }

    // Returns at once: the test turns the main loop itself.
    void run() override
    {
        calls.emplace_back("run");
        if (delegate)
            delegate->applicationDidFinishLaunching();
    }

    void terminate() override
    {
        calls.emplace_back("terminate");
        terminated = true;
        if (delegate)
            delegate->applicationWillTerminate();
    }

    ProcessID processID() const override { return pid; }
    std::optional<OwnWindow> keyWindow() const override { return key; }
    std::optional<OwnWindow> mainWindow() const override { return main; }
};

} // namespace haloric
