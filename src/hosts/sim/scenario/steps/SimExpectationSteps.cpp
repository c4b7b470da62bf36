// What is on screen is looked up in the window server's record of each overlay and in what was drawn, not in the
// program.
#include "hosts/sim/scenario/checks/SimOracle.h"
#include "hosts/sim/scenario/checks/SimText.h"
#include "hosts/sim/scenario/session/SimFailure.h"
#include "hosts/sim/scenario/session/SimValues.h"
#include "hosts/sim/scenario/steps/SimPlayer.h"
#include "settings/SettingsCodec.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace haloric {

namespace {

void require(bool condition, const std::string& otherwise)
{
    if (!condition)
        throw SimFailure(otherwise);
}

bool isSeen(SimPlayer& player, const SimOverlay& window)
{
    return window.isVisible() && player.desktop().model.isOnScreen(window.serverWindow());
}

const SimOverlay& highlightWindow(SimPlayer& player)
{
    return *player.desktop().overlay(player.session().overlays()->highlightWindow().windowNumber());
}

bool isWithin(const Rect& a, const Rect& b, double tolerance)
{
    const auto near = [&](double x, double y) { return std::abs(x - y) <= tolerance; };
    return near(a.x, b.x) && near(a.y, b.y) && near(a.width, b.width) && near(a.height, b.height);
}

// The rectangles that a drawing pass filled with this blend mode, in screen space of the window.
std::vector<Rect> filledShapes(const SimOverlay& window, BlendMode mode)
{
    std::vector<Rect> shapes;
    for (const auto& drawing : window.shownDrawings()) {
        const auto* fill = std::get_if<RecordingCanvas::Fill>(&drawing.call);
        if (!fill || drawing.state.blendMode != mode)
            continue;
        for (const auto& shape : fill->path.shapes()) {
            if (const auto* rounded = std::get_if<RoundedRect>(&shape))
                shapes.push_back(rounded->rect);
        }
    }
    return shapes;
}

bool noneSeen(SimPlayer& player, std::span<const std::unique_ptr<OverlayWindow>> windows)
{
    return std::ranges::none_of(
        windows, [&](const auto& window) { return isSeen(player, *player.desktop().overlay(window->windowNumber())); });
}

void expectHighlight(SimPlayer& player, const SimJson& arguments)
{
    const SimOverlay& window = highlightWindow(player);
    require(isSeen(player, window), "the highlight is not on screen");
    const double margin = SimOracle(player.desktop().model, player.session().settingsStore().settings()).margin();
    const Rect surrounded = window.serverWindow().frame.insetBy(margin);
    const double tolerance = arguments.value("within", 0.01);
    if (arguments.contains("frame")) {
        const Rect frame = simRectFrom(arguments["frame"]);
        require(isWithin(surrounded, frame, tolerance),
                "the highlight surrounds " + simText(surrounded) + ", not " + simText(frame));
    }
    if (arguments.contains("around")) {
        const Rect frame = player.window(arguments, "around").frame;
        require(isWithin(surrounded, frame, tolerance),
                "the highlight surrounds " + simText(surrounded) + ", not " + simText(frame));
    }
    const auto& front = player.desktop().model.windows.frontToBack();
    const auto top = std::ranges::find_if(front, [&](const auto& other) { return other->overlay && other->orderedIn; });
    require((*top)->number == window.serverWindow().number, "another overlay lies above the highlight");
}

void expectNoHighlight(SimPlayer& player, const SimJson&)
{
    require(!isSeen(player, highlightWindow(player)), "the highlight is on screen");
}

void expectDim(SimPlayer& player, const SimJson& arguments)
{
    const SimModel& model = player.desktop().model;
    const auto windows = player.session().overlays()->dimWindows();
    const Rect hole = model.flipped(player.window(arguments, "hole").frame);
    require(windows.size() == model.screens.size(), "there is not one dimming window a screen");
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const SimOverlay& window = *player.desktop().overlay(windows[i]->windowNumber());
        const std::string screen = "screen " + std::to_string(i + 1);
        require(isSeen(player, window), screen + " is not dimmed");
        require(window.serverWindow().frame == model.screens[i].frame, screen + " is not covered by its dimming");
        const Point origin = model.flipped(model.screens[i].frame).origin();
        const Rect local = hole.translatedBy(-origin.x, -origin.y);
        const auto holes = filledShapes(window, BlendMode::normal);
        const bool touches = intersects(local, window.bounds());
        require(touches ? holes.size() == 1 && simNear(holes.front(), local) : holes.empty(),
                touches ? screen + " has no hole at " + simText(local) : screen + " has a hole");
    }
}

void expectNoDim(SimPlayer& player, const SimJson&)
{
    require(noneSeen(player, player.session().overlays()->dimWindows()), "a screen is dimmed");
    require(noneSeen(player, player.session().overlays()->appDimWindows()), "applications are dimmed");
}

void expectAppDim(SimPlayer& player, const SimJson& arguments)
{
    const SimModel& model = player.desktop().model;
    const auto windows = player.session().overlays()->appDimWindows();
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const SimOverlay& window = *player.desktop().overlay(windows[i]->windowNumber());
        require(isSeen(player, window), "applications are not dimmed");
        const Point origin = model.flipped(model.screens[i].frame).origin();
        std::vector<Rect> expected;
        for (const std::string& name : arguments["dimmed"].get<std::vector<std::string>>()) {
            const Rect frame = model.flipped(player.window({{"window", name}}).frame);
            if (const Rect local = frame.translatedBy(-origin.x, -origin.y); intersects(local, window.bounds()))
                expected.push_back(local);
        }
        const auto dimmed = filledShapes(window, BlendMode::normal);
        require(std::ranges::is_permutation(dimmed, expected), "other windows are dimmed on screen " +
                                                                   std::to_string(i + 1) + ": " +
                                                                   std::to_string(dimmed.size()) + " of them");
    }
}

void expectTint(SimPlayer& player, const SimJson& arguments)
{
    double height = 0;
    for (const auto& drawing : highlightWindow(player).shownDrawings()) {
        if (const auto* band = std::get_if<RecordingCanvas::FillRect>(&drawing.call))
            height = band->rect.height;
    }
    const double expected = arguments["height"].get<double>();
    require(std::abs(height - expected) < 0.01,
            "the tint is " + std::to_string(height) + " points high, not " + std::to_string(expected));
}

std::uint64_t countOf(const SimPlayer::Counts& counts, const std::string& what)
{
    if (what == "pulses")
        return counts.pulses;
    if (what == "moved")
        return counts.moved;
    if (what == "carried")
        return counts.carried;
    if (what == "drawn")
        return counts.drawn;
    return what == "saves" ? counts.saves : counts.queries;
}

std::string fastPathOf(const OverlayWindow& window)
{
    if (!window.transactionMovesAvailable())
        return "givenUp";
    if (window.transactionMovesVerified())
        return "verified";
    return window.lastTransactionMove() > Seconds(0) ? "unverified" : "untried";
}

std::string trackingOf(const FocusTracker& tracker)
{
    if (!tracker.isRunning())
        return "stopped";
    return tracker.isFastTracking() ? "fast" : "slow";
}

void expectLog(SimPlayer& player, const SimJson& arguments)
{
    const auto line = arguments["line"].get<std::string>();
    const auto times = arguments.value("times", std::int64_t{1});
    const auto found = std::ranges::count(player.session().log.lines(), line);
    require(found == times, "expected the log line \"" + line + "\" " + std::to_string(times) + " times, found it " +
                                std::to_string(found) + " times");
}

void expectAlert(SimPlayer& player, const SimJson& arguments)
{
    const auto message = arguments["message"].get<std::string>();
    const auto& alert = player.session().alerts.lastAlert();
    require(alert && alert->messageText == message, "no alert \"" + message + "\" was shown");
}

void expectURL(SimPlayer& player, const SimJson& arguments)
{
    const auto start = arguments["start"].get<std::string>();
    const bool opened = std::ranges::any_of(player.desktop().journal.entries(), [&](const SimJournal::Entry& entry) {
        return entry.kind == SimJournal::Kind::url && entry.text.starts_with(start);
    });
    require(opened, "no URL that begins with \"" + start + "\" was opened");
}

void expectTracking(SimPlayer& player, const SimJson& arguments)
{
    const auto expected = arguments["speed"].get<std::string>();
    const auto found = trackingOf(*player.session().tracker());
    require(found == expected, "expected tracking to be " + expected + ", it is " + found);
}

void expectFastPath(SimPlayer& player, const SimJson& arguments)
{
    const auto expected = arguments["state"].get<std::string>();
    const auto found = fastPathOf(player.session().overlays()->highlightWindow());
    require(found == expected, "expected the fast path to be " + expected + ", it is " + found);
}

void expectCount(SimPlayer& player, const SimJson& arguments)
{
    const auto what = arguments["of"].get<std::string>();
    const auto found = static_cast<std::int64_t>(countOf(player.countsSinceMark(), what));
    const auto exactly = arguments.value("exactly", found);
    const auto atLeast = arguments.value("atLeast", found);
    const auto atMost = arguments.value("atMost", found);
    require(found == exactly && found >= atLeast && found <= atMost,
            "since the last mark, " + what + " happened " + std::to_string(found) + " times");
}

void expectSetting(SimPlayer& player, const SimJson& arguments)
{
    const auto stored = player.session().userDefaults.data(SettingsStore::kDefaultsKey);
    require(stored.has_value(), "no settings are stored");
    const SimJson json = SimJson::parse(*stored, nullptr, false);
    for (const auto& [name, value] : arguments["is"].items()) {
        require(json.contains(name) && json[name] == value,
                "the stored setting \"" + name + "\" is not " + value.dump());
    }
}

} // namespace

const std::vector<SimStepKind>& simExpectationSteps()
{
    constexpr auto required = SimPresence::required;
    constexpr auto optional = SimPresence::optional;
    const SimParameter atLeast{"atLeast", SimType::integer, optional, "the least number of times"};
    const SimParameter atMost{"atMost", SimType::integer, optional, "the greatest number of times"};
    const SimParameter exactly{"exactly", SimType::integer, optional, "the number of times"};
    static const std::vector<SimStepKind> kinds{
        {"expectHighlight",
         "the highlight is on screen, above every dimming, and drawn as it should be",
         {{"around", SimType::text, optional, "the window that it surrounds"},
          {"frame", SimType::rect, optional, "the frame that it surrounds, in global space"},
          {"within", SimType::number, optional, "how far it may be off, in points; 0.01"}},
         expectHighlight},
        {"expectNoHighlight", "no highlight is on screen", {}, expectNoHighlight},
        {"expectDim",
         "every screen is dimmed but for a hole where a window is",
         {{"hole", SimType::text, required, "the window"}},
         expectDim},
        {"expectNoDim", "nothing is dimmed", {}, expectNoDim},
        {"expectAppDim",
         "applications are dimmed: just these windows, and nothing that lies before them",
         {{"dimmed", SimType::texts, required, "the windows that are dimmed"}},
         expectAppDim},
        {"expectTint",
         "the title bar is tinted this high",
         {{"height", SimType::number, required, "in points; 0: not at all"}},
         expectTint},
        {"expectLog",
         "a line was written to the log",
         {{"line", SimType::text, required, "the line"},
          {"times", SimType::integer, optional, "how often; 1. 0: never"}},
         expectLog},
        {"expectAlert",
         "an alert with this message was shown",
         {{"message", SimType::text, required, "the message"}},
         expectAlert},
        {"expectURL", "a URL was opened", {{"start", SimType::text, required, "how it begins"}}, expectURL},
        {"expectTracking",
         "the program tracks fast (once a frame) or slowly (by poll)",
         {{"speed", SimType::text, required, "which", {"fast", "slow", "stopped"}}},
         expectTracking},
        {"expectFastPath",
         "the state of the overlay's moves in the window server",
         {{"state", SimType::text, required, "which", {"untried", "unverified", "verified", "givenUp"}}},
         expectFastPath},
        {"expectCount",
         "how often something has happened since the last mark",
         {{"of", SimType::text, required, "what", {"pulses", "moved", "carried", "drawn", "saves", "queries"}},
          atLeast,
          atMost,
          exactly},
         expectCount},
        {"expectSetting",
         "a stored setting has a value",
         {{"is", SimType::object, required, "one or more settings by their stored names"}},
         expectSetting},
    };
    return kinds;
}

} // namespace haloric
