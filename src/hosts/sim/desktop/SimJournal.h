// A record of everything visible on the simulated desktop, with virtual time: overlay windows that appear, disappear,
// move and need drawing, log lines, alerts, prompts, saves, and the steps of a scenario. The same run gives the same
// journal.
#pragma once

#include "foundation/Geometry.h"
#include "hosts/sim/loop/SimRunLoop.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace haloric {

class SimJournal {
public:
    enum class Kind {
        step,           // what the scenario did
        overlayMoved,   // through the toolkit
        overlayCarried, // through a transaction of the window server
        overlayShown,   // or brought to the front again
        overlayHidden,
        overlayDirty, // its contents are outdated
        overlayDrawn,
        log,
        alert,
        prompt,
        url,
        save,
        process,
        menuBar,
        window, // one of the program's own, with a form
        shell,  // hotkeys, login items, updates, panels
        application,
    };

    struct Entry {
        SimRunLoop::Nanoseconds at{0};
        Kind kind = Kind::step;
        std::int64_t overlay = 0; // the overlay's window number, or 0
        Rect frame;               // global space; overlays that move or show
        std::string text;
    };

    explicit SimJournal(const SimRunLoop& runLoop) : m_runLoop(runLoop) {}

    void note(Kind kind, std::string_view text);
    void noteOverlay(Kind kind, std::int64_t overlay, const Rect& frame);

    const std::vector<Entry>& entries() const { return m_entries; }

    // How often something of this kind happened, also when entries are not kept.
    std::uint64_t count(Kind kind) const { return m_counts[static_cast<std::size_t>(kind)]; }

    // A hash of the whole journal, also when entries are not kept.
    std::uint64_t digest() const { return m_digest; }

    // Long random runs keep the counts and the digest only.
    void setKeepsEntries(bool keeps) { m_keepsEntries = keeps; }
    bool keepsEntries() const { return m_keepsEntries; }

    // One line: time, kind, and what happened.
    static std::string line(const Entry& entry);

private:
    void add(Entry entry);

    const SimRunLoop& m_runLoop;
    std::vector<Entry> m_entries;
    std::uint64_t m_counts[static_cast<std::size_t>(Kind::application) + 1]{};
    std::uint64_t m_digest = 0xcbf29ce484222325;
    bool m_keepsEntries = true;
};

} // namespace haloric
