// The Accessibility attributes that the focus query reads, answered from the properties of managed windows.
//
// Trust means that a window manager runs which tells the focus and the frames. Attributes come from the table of
// clients, which any thread may read: nothing here waits for a client or for the server, so timeouts have nothing
// to limit and no call ever reports that an application did not answer.
#pragma once

#include "hosts/x11/server/X11Scale.h"
#include "hosts/x11/windows/X11Clients.h"
#include "hosts/x11/windows/X11WindowManager.h"
#include "platform/Accessibility.h"
#include "platform/RunLoop.h"

namespace haloric {

class X11AccessibilityElement;

class X11Accessibility final : public Accessibility {
public:
    // All outlive it, its elements and its observers.
    X11Accessibility(RunLoop& runLoop, X11Clients& clients, const X11WindowManager& windowManager,
                     const X11Scale& scale)
        : m_runLoop(runLoop),
          m_clients(clients),
          m_windowManager(windowManager),
          m_scale(scale)
    {
    }

    bool isProcessTrusted() const override { return m_windowManager.isRunning(); }
    bool isProcessTrustedWithPrompt(bool) override { return isProcessTrusted(); } // there is nothing to ask for

    AXElement createApplicationElement(ProcessID pid) override;
    void setMessagingTimeout(const AXElement&, float) override {}
    AXAttribute copyAttribute(const AXElement& element, std::string_view name) override;
    AXWindowNumber windowNumber(const AXElement& element) override;
    std::uint64_t hash(const AXElement& element) override;
    std::unique_ptr<AXObserver> createObserver(ProcessID pid, ObserverCallback callback) override;

private:
    AXAttribute applicationAttribute(const X11AccessibilityElement& element, std::string_view name) const;
    AXAttribute windowAttribute(const X11Client& client, std::string_view name) const;
    AXAttribute closeButton(const X11Client& client) const;
    AXAttribute closeButtonAttribute(const X11Client& client, std::string_view name) const;

    RunLoop& m_runLoop;
    X11Clients& m_clients;
    const X11WindowManager& m_windowManager;
    const X11Scale& m_scale;
};

} // namespace haloric
