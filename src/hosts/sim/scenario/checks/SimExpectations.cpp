#include "hosts/sim/scenario/checks/SimExpectations.h"

#include "hosts/sim/scenario/SimFailure.h"
#include "hosts/sim/scenario/SimPlayer.h"
#include "settings/SettingsCodec.h"

#include <algorithm>
#include <string>

namespace haloric {

namespace {

void require(bool condition, const std::string& otherwise)
{
    if (!condition)
        throw SimFailure(otherwise);
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

} // namespace

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

} // namespace haloric
