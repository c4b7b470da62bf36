#include "hosts/sim/scenario/steps/SimPlayer.h"

#include "hosts/sim/scenario/session/SimFailure.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace haloric {

namespace {

SimSession& started(SimSession& session)
{
    session.start();
    return session;
}

std::string journalText(const SimStep& step)
{
    std::string text(step.kind->name);
    if (!step.arguments.empty())
        text += " " + step.arguments.dump();
    return text;
}

} // namespace

SimPlayer::SimPlayer(const SimSetup& setup, UnknownNames unknownNames, const SimAdapterFactory& makeAdapters)
    : m_session(setup, makeAdapters),
      m_checkers(started(m_session)),
      m_unknownNames(unknownNames)
{
}

void SimPlayer::play(const SimStep& step)
{
    const double now = this->now().count();
    constexpr double kSlack = 1e-6; // instants are whole nanoseconds
    if (step.at && *step.at < now - kSlack)
        throw SimScenarioError("it is " + std::to_string(now) + " s already");
    advance(Seconds(step.at ? std::max(0.0, *step.at - now) : step.after));
    if (desktop().journal.keepsEntries())
        desktop().journal.note(SimJournal::Kind::step, journalText(step));
    try {
        step.kind->run(*this, step.arguments);
    } catch (const SimUnknownName&) {
        if (m_unknownNames == UnknownNames::fail)
            throw;
    }
    m_checkers.afterStep();
}

void SimPlayer::advance(Seconds duration)
{
    SimRunLoop& runLoop = desktop().runLoop;
    if ((now() + duration).count() > kSimSeconds.most)
        throw SimScenarioError("a scenario lasts at most " + std::to_string(std::lround(kSimSeconds.most)) + " s");
    const auto end = runLoop.now() + std::chrono::round<SimRunLoop::Nanoseconds>(duration);
    while (runLoop.nextDue() && *runLoop.nextDue() <= end) {
        runLoop.runNext();
        watchPulse();
        m_checkers.afterEvent();
    }
    runLoop.runFor(end - runLoop.now());
}

void SimPlayer::rest(Seconds duration)
{
    SimDesktop& all = desktop();
    all.pointer.releaseAll();
    all.keyboard.press(SimKeyboard::kEscape, 0);
    all.faults.missingWindowLists = 0;
    all.faults.timeoutAfterCalls = 0;
    // A hung application blocks the Accessibility queue for up to a dozen timeouts, and with it the query of the
    // application that is frontmost by now.
    constexpr Seconds kLongestQuery{4.0};
    constexpr Seconds kLook{0.05};
    for (Seconds waited{0}; m_session.tracker()->isQueryInFlight() && waited < kLongestQuery; waited += kLook)
        advance(kLook);
    advance(duration);
    m_checkers.atRest();
}

void SimPlayer::watchPulse()
{
    const OverlayController& overlays = *m_session.overlays();
    const bool runs = overlays.pulseRunning();
    const double progress = overlays.highlightView().pulseProgress;
    if (runs && (!m_pulseRan || progress < m_pulseProgress))
        ++m_pulses;
    m_pulseRan = runs;
    m_pulseProgress = progress;
}

SimApp& SimPlayer::app(const SimJson& arguments, const char* key)
{
    const auto& name = arguments[key].get_ref<const std::string&>();
    if (SimApp* app = desktop().model.appNamed(name))
        return *app;
    throw SimUnknownName("there is no application \"" + name + "\"");
}

SimWindow& SimPlayer::window(const SimJson& arguments, const char* key)
{
    const auto& name = arguments[key].get_ref<const std::string&>();
    if (SimWindow* window = desktop().model.windows.named(name))
        return *window;
    throw SimUnknownName("there is no window \"" + name + "\"");
}

SimScreen& SimPlayer::screen(const SimJson& arguments, const char* key)
{
    const auto id = static_cast<DisplayID>(arguments[key].get<std::uint32_t>());
    auto& screens = desktop().model.screens;
    const auto found = std::ranges::find(screens, id, &SimScreen::id);
    if (found == screens.end())
        throw SimUnknownName("there is no screen " + arguments[key].dump());
    return *found;
}

SimPlayer::Counts SimPlayer::counts() const
{
    const SimJournal& journal = m_session.desktop().journal;
    using Kind = SimJournal::Kind;
    return {m_pulses,
            journal.count(Kind::overlayMoved),
            journal.count(Kind::overlayCarried),
            journal.count(Kind::overlayDrawn),
            journal.count(Kind::save),
            m_session.accessibility.queries()};
}

SimPlayer::Counts SimPlayer::countsSinceMark() const
{
    const Counts now = counts();
    return {now.pulses - m_mark.pulses, now.moved - m_mark.moved, now.carried - m_mark.carried,
            now.drawn - m_mark.drawn,   now.saves - m_mark.saves, now.queries - m_mark.queries};
}

} // namespace haloric
