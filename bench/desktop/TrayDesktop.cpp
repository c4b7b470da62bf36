#include "desktop/TrayDesktop.h"

#include "testing/x11/Key.h"
#include "testing/x11/ProcessFigures.h"
#include "testing/x11/Require.h"

namespace haloric {

TrayDesktop::TrayDesktop()
    : m_session(WindowManager::openbox, Compositor::picom),
      m_client(m_session.makeClient({.content = {1200, 600, 500, 300}})),
      m_panel(m_session)
{
    require(m_client->showFocused(), "the window was not shown");
    m_haloric = std::make_unique<HaloricProcess>(m_session, R"({"pulseEnabled": false})");
    require(m_haloric->waitForHighlight(m_client->visibleFrame()).has_value(), "no highlight appeared");
    m_shell.emplace(m_session, m_panel, *m_haloric);
}

double TrayDesktop::proportionalMegabytes() const { return ProcessFigures::of(m_haloric->pid()).proportionalMegabytes; }

bool TrayDesktop::isPainted()
{
    const ScreenRect content = m_shell->content();
    return content.width > 0 && m_session.observer().capture(content).isPainted();
}

double TrayDesktop::openSettings()
{
    const auto menu = m_shell->openMenu();
    require(menu && m_shell->moveInMenu(*menu, Key::kDown, static_cast<int>(MenuEntry::settings)), "no menu");
    const auto begin = BenchClock::now();
    m_session.input().chord({Key::kReturn});
    require(comesTrue([this] { return isPainted(); }, kTimeout), "the settings window did not open");
    const double milliseconds = millisecondsSince(begin);
    require(m_shell->waitUntilActive(), "the settings window is not the active one");
    return milliseconds;
}

void TrayDesktop::closeSettings()
{
    require(m_shell->closeSettings(), "the settings window did not close");
    require(m_client->focus(), "the window did not get the focus back");
}

} // namespace haloric
