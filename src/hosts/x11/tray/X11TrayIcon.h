// The program's icon in a system tray of the XEmbed protocol: a window of the main connection, which the tray embeds.
// Main thread.
//
// Sources: the "System Tray Protocol Specification" and the "XEmbed Protocol Specification" of freedesktop.org.
#pragma once

#include "foundation/Publisher.h"
#include "foundation/WeakAnchor.h"
#include "hosts/linux/tray/EmbeddedIcon.h"
#include "hosts/x11/input/X11OwnWindows.h"
#include "hosts/x11/server/X11Connection.h"
#include "hosts/x11/tray/X11IconPainter.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace haloric {

class X11TrayIcon final : public EmbeddedIcon {
public:
    // All outlive it.
    X11TrayIcon(X11Connection& connection, LinuxRunLoop& runLoop, X11OwnWindows& ownWindows);
    ~X11TrayIcon() override;
    X11TrayIcon(const X11TrayIcon&) = delete;
    X11TrayIcon& operator=(const X11TrayIcon&) = delete;

    // EmbeddedIcon
    void setImage(const Image& image) override;
    void setVisible(bool isVisible) override;
    Subscription onPress(Handler handler) override { return m_pressed.subscribe(std::move(handler)); }
    Subscription onRest(Handler handler) override { return m_rested.subscribe(std::move(handler)); }
    Subscription onLeave(Handler handler) override { return m_left.subscribe(std::move(handler)); }

private:
    void listen();
    void listenToPointer();
    void dock();
    void undock();
    void makeWindow();
    void describeWindow();
    void handlePress(const xcb_button_press_event_t& event);
    void paint();

    X11Connection& m_connection;
    LinuxRunLoop& m_runLoop;
    X11OwnWindows& m_ownWindows;
    X11IconPainter m_painter;
    Image m_image;
    bool m_isVisible = false;
    xcb_window_t m_tray = XCB_WINDOW_NONE;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    xcb_visualid_t m_visual = 0; // of the window
    xcb_colormap_t m_colormap = XCB_COLORMAP_NONE;
    int m_width = 0; // pixels, of the window
    int m_height = 0;
    bool m_isEmbedded = false;
    Publisher<PixelRect> m_pressed;
    Publisher<PixelRect> m_rested;
    Publisher<PixelRect> m_left;
    Subscription m_resting; // the pointer has entered
    std::vector<Subscription> m_events;
    WeakAnchor<X11TrayIcon> m_anchor{*this};
};

class X11TrayIcons final : public EmbeddedIcons {
public:
    // All outlive it.
    X11TrayIcons(X11Connection& connection, LinuxRunLoop& runLoop, X11OwnWindows& ownWindows)
        : m_connection(connection),
          m_runLoop(runLoop),
          m_ownWindows(ownWindows)
    {
    }

    std::unique_ptr<EmbeddedIcon> make() override
    {
        return std::make_unique<X11TrayIcon>(m_connection, m_runLoop, m_ownWindows);
    }

private:
    X11Connection& m_connection;
    LinuxRunLoop& m_runLoop;
    X11OwnWindows& m_ownWindows;
};

} // namespace haloric
