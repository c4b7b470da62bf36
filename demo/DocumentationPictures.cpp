#include "demo/DocumentationPictures.h"

#include "demo/DemoSteps.h"
#include "demo/FormPictures.h"
#include "demo/SampleWindows.h"
#include "demo/ScreenRecording.h"
#include "testing/x11/Key.h"

#include <algorithm>

namespace haloric {
namespace {

constexpr int kScale = SampleDesktop::kScale;

// Without the pulse, which would appear in pictures of the other effects.
constexpr const char* kStill = R"({"pulseEnabled": false})";
// The choices that show additional rows.
constexpr const char* kManyShown = R"({"tintEnabled": true, "dimEnabled": true,
    "borderColor": {"useAccent": false, "custom": {"r": 0.96, "g": 0.45, "b": 0.13, "a": 1}},
    "dimOpacity": 0.5, "dimScope": "selectedApps", "dimApps": ["SampleNotes", "SampleTerminal"]})";
constexpr std::chrono::milliseconds kPulseAndRest{1500};
constexpr int kPulseReach = 30; // points around the window
constexpr int kMostRecordings = 12;
constexpr std::size_t kSmoothFrames = 50;
constexpr std::size_t kLeastFrames = 20;

ScreenRect united(const ScreenRect& a, const ScreenRect& b)
{
    const int x = std::min(a.x, b.x);
    const int y = std::min(a.y, b.y);
    return {x, y, std::max(a.right(), b.right()) - x, std::max(a.bottom(), b.bottom()) - y};
}

} // namespace

void DocumentationPictures::run()
{
    showEffects();
    SampleDesktop light(560, 720, Tone::light);
    showSettings(light, "settings");
    showSections(light);
    SampleDesktop dark(560, 720, Tone::dark);
    showSettings(dark, "settings-dark");
}

void DocumentationPictures::showEffects()
{
    SampleDesktop desktop(900, 580, Tone::light);
    Windows windows;
    windows.notes = openSample(desktop.session(), SampleApplication::notes, {40, 88, 450, 250}, kScale);
    windows.terminal = openSample(desktop.session(), SampleApplication::terminal, {120, 310, 390, 216}, kScale);
    windows.gallery = openSample(desktop.session(), SampleApplication::gallery, {458, 140, 398, 266}, kScale);

    require(windows.terminal->focus() && windows.gallery->focus(), "the focus cannot be moved");
    showWhole(desktop, *windows.gallery, "highlight", kStill);
    showWhole(desktop, *windows.gallery, "dim-all-windows",
              R"({"pulseEnabled": false, "dimEnabled": true, "dimOpacity": 0.5})");
    showWhole(desktop, *windows.gallery, "dim-selected-apps",
              R"({"pulseEnabled": false, "dimEnabled": true, "dimOpacity": 0.6, "dimScope": "selectedApps",
                  "dimApps": ["SampleTerminal"]})");
    showMenu(desktop, *windows.gallery);
    showPulse(desktop, windows);

    require(windows.gallery->close() && windows.terminal->close() && windows.notes->focus(),
            "the focus cannot be moved");
    showTitleBar(desktop, *windows.notes, "border", R"({"pulseEnabled": false, "glowEnabled": false})");
    showTitleBar(desktop, *windows.notes, "glow", R"({"pulseEnabled": false, "borderEnabled": false})");
    showTitleBar(desktop, *windows.notes, "tint",
                 R"({"pulseEnabled": false, "tintEnabled": true, "tintOpacity": 0.4})");
}

void DocumentationPictures::showWhole(SampleDesktop& desktop, TestClient& focused, const char* name,
                                      const std::string& settings)
{
    HaloricProcess haloric = start(desktop, settings);
    requireHighlight(haloric, focused.visibleFrame());
    keep(settledScreen(desktop.session()), name, "the whole desktop");
    stop(haloric);
}

void DocumentationPictures::showTitleBar(SampleDesktop& desktop, TestClient& focused, const char* name,
                                         const std::string& settings)
{
    constexpr int kBefore = 34;  // points beside the window and above it
    constexpr int kHeight = 178; // of the picture; it ends between two lines of the window's text
    HaloricProcess haloric = start(desktop, settings);
    const ScreenRect frame = focused.visibleFrame();
    requireHighlight(haloric, frame);
    const ScreenRect area{frame.x - kBefore * kScale, frame.y - kBefore * kScale, frame.width + 2 * kBefore * kScale,
                          kHeight * kScale};
    keep(settledScreen(desktop.session(), area), name, "the upper part of a window");
    stop(haloric);
}

void DocumentationPictures::showPulse(SampleDesktop& desktop, Windows& windows)
{
    X11Session& session = desktop.session();
    HaloricProcess haloric = start(desktop, "{}");
    const ScreenRect left = windows.notes->visibleFrame();
    const ScreenRect right = windows.gallery->visibleFrame();
    requireHighlight(haloric, right);
    const auto record = [&] {
        settledScreen(session);
        ScreenRecording recording(session, grown(united(left, right), kPulseReach * kScale));
        // To one window and back, so that the animation can loop.
        for (const ScreenRect& frame : {left, right}) {
            session.input().clickAt(frame.x + 60 * kScale, frame.y + 10 * kScale);
            recording.record(kPulseAndRest);
        }
        return recording;
    };
    // Records several times and keeps the one with the most frames, as other programs take processor time.
    ScreenRecording smoothest = record();
    for (int time = 1; time < kMostRecordings && smoothest.frameCount() < kSmoothFrames; ++time)
        if (ScreenRecording another = record(); another.frameCount() > smoothest.frameCount())
            smoothest = std::move(another);
    require(smoothest.frameCount() >= kLeastFrames, "the pulse was not seen");
    smoothest.save(m_folder / "pulse");
    stop(haloric);
}

void DocumentationPictures::showMenu(SampleDesktop& desktop, TestClient& focused)
{
    HaloricProcess haloric = start(desktop, "{}");
    requireHighlight(haloric, focused.visibleFrame());
    ProgramShell shell(desktop.session(), desktop.panel(), haloric);
    const auto menu = shell.openMenu();
    require(menu && shell.moveInMenu(*menu, Key::kDown, static_cast<int>(MenuEntry::accentColor)),
            "the menu does not open");
    desktop.session().input().chord({Key::kRight});
    const auto colors = shell.waitForMenu(2);
    require(colors.has_value(), "the menu of colours does not open");
    const ScreenImage all = settledScreen(desktop.session());
    ScreenRect area = grown(united(*menu, *colors), 20 * kScale);
    area = united(area, {area.x, 0, all.area().right() - area.x, 1}); // up to the screen's edge, with the panel
    keep(desktop.session().observer().capture(area), "menu", "the menu with its colours");
    for (int level = 0; level < 2; ++level)
        desktop.session().input().chord({Key::kEscape});
    stop(haloric);
}

// No other window is open, so that none appears in the picture.
void DocumentationPictures::showSettings(SampleDesktop& desktop, const char* name)
{
    HaloricProcess haloric = start(desktop, "{}", {"--settings"});
    ProgramShell shell(desktop.session(), desktop.panel(), haloric);
    require(shell.waitUntilActive(), "the settings do not open");
    requireHighlight(haloric, shell.frame());
    desktop.session().input().moveTo(0, 0);
    keep(settledScreen(desktop.session(), grown(shell.frame(), 24 * kScale)), name, "the settings window");
    stop(haloric);
}

// A running application that is not in the list fills its menu.
void DocumentationPictures::showSections(SampleDesktop& desktop)
{
    const auto gallery = openSample(desktop.session(), SampleApplication::gallery, {80, 80, 398, 266}, kScale);
    HaloricProcess haloric = start(desktop, kManyShown, {"--settings"});
    ProgramShell shell(desktop.session(), desktop.panel(), haloric);
    require(shell.waitUntilActive(), "the settings do not open");
    const std::vector<std::string> names{"general", "border", "glow", "tint", "dim", "pulse", "shortcut"};
    const auto sections = sectionsOf(desktop.session(), shell.content(), kScale);
    require(sections.size() == names.size(), "the settings have " + std::to_string(sections.size()) + " sections");
    for (std::size_t index = 0; index < names.size(); ++index)
        keep(sections[index], "settings-" + names[index], "a section of the settings");
    stop(haloric);
}

HaloricProcess DocumentationPictures::start(SampleDesktop& desktop, const std::string& settings,
                                            const std::vector<std::string>& arguments)
{
    return {desktop.session(), settings, arguments, desktop.environmentOfTone(), m_program};
}

void DocumentationPictures::keep(const ScreenImage& picture, const std::string& name, const std::string& description)
{
    keepPicture(picture, m_folder / (name + ".png"), description);
}

} // namespace haloric
