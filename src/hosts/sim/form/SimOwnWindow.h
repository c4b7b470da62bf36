// An ordinary window of the program on the simulated desktop. It can have the focus, and the user can close it; then it
// can be shown again in the same place. Main thread.
#pragma once

#include "hosts/sim/desktop/SimDesktop.h"

#include <string>

namespace haloric {

class SimOwnWindow {
public:
    static constexpr double kTitleBarHeight = 28; // points

    // Not on the desktop yet. `desktop` outlives the window. `frame`: global space, with the title bar.
    SimOwnWindow(SimDesktop& desktop, std::string title, const Rect& frame);
    ~SimOwnWindow();
    SimOwnWindow(const SimOwnWindow&) = delete;
    SimOwnWindow& operator=(const SimOwnWindow&) = delete;

    Task whenClosedByUser; // may be empty

    const std::string& title() const { return m_title; }
    void setTitle(std::string title) { m_title = std::move(title); }

    bool isVisible() const { return onDesktop() != nullptr; }
    Rect frame() const;                              // global space
    WindowNumber number() const { return m_number; } // none while it is not on the desktop
    double titleBarHeight() const;

    void setFrame(const Rect& frame);
    void center(); // on the primary screen
    void makeKeyAndOrderFront();
    void orderFront(); // without the focus, unless it comes on the desktop
    void close();

private:
    SimWindow* onDesktop() const { return m_desktop.model.windows.find(m_number); }
    void open();
    void note(const std::string& what) const;

    SimDesktop& m_desktop;
    std::string m_title;
    Rect m_frame; // while it is not on the desktop
    WindowNumber m_number = WindowNumber::none;
};

} // namespace haloric
