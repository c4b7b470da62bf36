#include "demo/SampleDesktop.h"

#include "demo/DemoPictures.h"
#include "demo/DemoSteps.h"
#include "demo/SampleWindows.h"

namespace haloric {
namespace {

constexpr int kPanelHeight = 24; // points

} // namespace

SampleDesktop::SampleDesktop(int width, int height, Tone tone)
    : m_session(WindowManager::openbox, Compositor::none, {.width = width * kScale, .height = height * kScale}),
      m_tone(tone)
{
    const std::filesystem::path data = m_session.environment().at("XDG_DATA_HOME");
    const std::filesystem::path configuration = m_session.environment().at("XDG_CONFIG_HOME");
    installSamples(data);
    writeWindowTheme(tone, data, configuration);
    writePanelColors(m_session.environment().at("HOME"));
    if (tone == Tone::dark)
        writeDarkColors(configuration);

    // The window manager reads the density when it starts.
    DesktopObserver& observer = m_session.observer();
    m_session.stopWindowManager();
    observer.setText(observer.root(), "RESOURCE_MANAGER",
                     "Xft.dpi:\t" + std::to_string(96 * kScale) + "\nXft.antialias:\t1\nXft.hinting:\t0\n");
    observer.setDesktopPicture(paintDesktop(width, height, kScale));
    m_session.startWindowManager();

    const auto file = configuration / "picom.conf";
    writeCompositorConfiguration(file);
    m_compositor.emplace(ChildProcess::Options{
        {"picom", "--config", file.string()}, m_session.environment(), m_session.server().folder() / "picom.log", -1});
    require(observer.waitUntil([&] { return observer.compositorDraws(); }), "the compositor does not start");

    const std::string panelHeight = std::to_string(kPanelHeight * kScale);
    m_panel.emplace(m_session, std::vector<std::string>{"--align", "right", "--height", panelHeight, "--widthtype",
                                                        "percent", "--width", "100", "--padding", "12"});
}

Environment SampleDesktop::environmentOfTone() const
{
    if (m_tone == Tone::light)
        return {};
    // With this desktop name, Qt takes its colours from the file that writeDarkColors() writes.
    return {{"XDG_CURRENT_DESKTOP", "KDE"}, {"KDE_FULL_SESSION", "true"}, {"KDE_SESSION_VERSION", "5"}};
}

} // namespace haloric
