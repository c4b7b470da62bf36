#include "hosts/sim/form/SimOwnWindow.h"

#include <utility>

namespace haloric {

SimOwnWindow::SimOwnWindow(SimDesktop& desktop, std::string title, const Rect& frame)
    : m_desktop(desktop),
      m_title(std::move(title)),
      m_frame(frame)
{
}

SimOwnWindow::~SimOwnWindow() { close(); }

Rect SimOwnWindow::frame() const
{
    const SimWindow* window = onDesktop();
    return window ? window->frame : m_frame;
}

double SimOwnWindow::titleBarHeight() const
{
    const SimWindow* window = onDesktop();
    if (!window)
        return kTitleBarHeight;
    return window->decoration == SimDecoration::none ? 0 : window->titleBarHeight;
}

void SimOwnWindow::setFrame(const Rect& frame)
{
    m_frame = frame;
    if (SimWindow* window = onDesktop())
        m_desktop.windows.setFrame(*window, frame);
}

void SimOwnWindow::center()
{
    if (m_desktop.model.screens.empty())
        return;
    const Rect screen = m_desktop.model.screens.front().frame;
    const Size size = frame().size();
    setFrame({screen.x + (screen.width - size.width) / 2, screen.y + (screen.height - size.height) / 2, size.width,
              size.height});
}

void SimOwnWindow::makeKeyAndOrderFront()
{
    note("comes to the front");
    if (!isVisible())
        open();
    m_desktop.windows.focus(*onDesktop());
}

void SimOwnWindow::orderFront()
{
    if (isVisible())
        m_desktop.model.windows.raise(m_number);
    else
        open();
}

void SimOwnWindow::close()
{
    SimWindow* window = onDesktop();
    if (!window)
        return;
    window->whenClosed = nullptr;
    m_frame = window->frame;
    m_desktop.windows.close(*window);
    m_number = WindowNumber::none;
}

void SimOwnWindow::open()
{
    SimWindow window;
    window.name = m_title;
    window.frame = m_frame;
    window.titleBarHeight = kTitleBarHeight;
    window.whenClosed = [this](const SimWindow& closed) {
        m_frame = closed.frame;
        m_number = WindowNumber::none;
        note("is closed");
        if (whenClosedByUser)
            whenClosedByUser();
    };
    m_number = m_desktop.windows.open(*m_desktop.model.app(SimModel::kOwnProcess), std::move(window)).number;
}

void SimOwnWindow::note(const std::string& what) const
{
    m_desktop.journal.note(SimJournal::Kind::window, "\"" + m_title + "\" " + what);
}

} // namespace haloric
