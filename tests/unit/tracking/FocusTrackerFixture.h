// One tracker on a desktop of fakes. Everything that it publishes is appended to a journal, like "blank", "cleared 7",
// "7/42 100,400 400x300" (process/window, frame in screen space) and "pulse".
#pragma once

#include "tracking/FocusTracker.h"

#include "unit/tracking/TrackedDesktop.h"
#include "windowserver/SharedWindowServer.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace haloric {

class FocusTrackerFixture : public testing::Test, protected TrackedDesktop {
protected:
    FocusTrackerFixture() { makeTracker(); }

    ~FocusTrackerFixture() override
    {
        tracker.reset();
        loop.runFor(Seconds(1)); // the queue may still be busy, and its blocks use the fakes
        EXPECT_EQ(accessibility.callsOutsideQueue, 0) << "only the queue may block on an application";
    }

    void makeTracker()
    {
        tracker.reset();
        windowServer.emplace(library, processes, loop, log);
        makeTrackerOnly();
    }

    void makeTrackerOnly()
    {
        tracker.emplace(FocusTrackerDependencies{loop, queues, links, workspace, screens, accessibility, windowInfo,
                                                 input, application, *windowServer, videoLinks});
        tracker->onChange = [this](const FocusState& state) { journal.push_back(describe(state)); };
        tracker->onPulse = [this] { journal.emplace_back("pulse"); };
    }

    // As on a system that makes no links from screens.
    void useVideoLinks()
    {
        videoLinks = &links;
        makeTracker();
    }

    // As on a system whose private interface cannot be opened.
    void dropWindowServer()
    {
        library.canBeOpened = false;
        makeTracker();
    }

    // Everything that is due now: queries and their results, deliveries; but no poll.
    void run() { loop.runPosted(); }

    // Starts, and lets the first query come to its end.
    void start()
    {
        tracker->start();
        run();
    }

    // Starts, and stops the world as the first query has its result on the way to the main thread.
    void startUntilResultIsUnderWay()
    {
        tracker->start();
        loop.runNext();
        ASSERT_EQ(queryCount(), 1U);
        journal.clear();
    }
    void deliverResult() { loop.runNext(); }
    void finishQuery() { loop.runNext(); }

    // Causes a refresh, and nothing else once fast tracking is on.
    void askForRefresh() { input.sendGlobal(EventType::leftMouseUp); }
    void poll() { loop.runFor(FocusTracker::kPollInterval); }

    void drag() { place(kWindow, std::get<Rect>(info(kWindow).bounds).translatedBy(1, 0)); } // by a point

    std::size_t queryCount() const { return accessibility.count("AXFocusedWindow"); }
    FakeAccessibility::Observer& observer(std::size_t index) { return *accessibility.observers.at(index); }
    void notify(std::string_view name) { accessibility.notify(accessibility.observers.back(), name); }
    void notifyWindowServer(WindowServerEvent event, WindowNumber number = kWindow)
    {
        library.notify(event, number);
        run();
    }

    // Display frames of 1/60 s for so long; `each` runs before each of them.
    template <class Each = void (*)()>
    void frames(
        double seconds, Each each = [] {})
    {
        for (int frame = 0; frame < static_cast<int>(seconds * 60 + 0.5); ++frame) {
            loop.runFor(Seconds(1.0 / 60));
            each();
            links.frame();
        }
    }

    // Seconds of display frames until fast tracking has ended; `each` runs before each frame.
    template <class Each = void (*)()>
    double secondsUntilSlow(Each each = [] {})
    {
        int frame = 0;
        for (; frame < 600 && tracker->isFastTracking(); ++frame)
            frames(1.0 / 60, each);
        return frame / 60.0;
    }

    void leaveFastTracking()
    {
        frames(1.5);
        ASSERT_FALSE(tracker->isFastTracking());
        run();
        journal.clear();
    }

    static std::string describe(const FocusState& state)
    {
        if (state == FocusState::blank())
            return "blank";
        if (state == FocusState::cleared(state.pid))
            return "cleared " + number(static_cast<double>(state.pid));
        if (!state.frame)
            return "odd";
        const Rect& frame = *state.frame;
        return number(static_cast<double>(state.pid)) + "/" + number(static_cast<double>(state.windowID)) + " " +
               number(frame.x) + "," + number(frame.y) + " " + number(frame.width) + "x" + number(frame.height);
    }

    std::vector<std::string> takeJournal() { return std::exchange(journal, {}); }

    std::optional<SharedWindowServer> windowServer;
    std::vector<std::string> journal;
    std::optional<FocusTracker> tracker;

private:
    static std::string number(double value)
    {
        std::string text = std::to_string(value);
        text.erase(text.find_last_not_of('0') + 1);
        return text.ends_with('.') ? text.substr(0, text.size() - 1) : text;
    }
};

} // namespace haloric
