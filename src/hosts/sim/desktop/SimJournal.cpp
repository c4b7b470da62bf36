#include "hosts/sim/desktop/SimJournal.h"

#include <bit>
#include <cstdio>
#include <utility>

namespace haloric {

namespace {

constexpr std::uint64_t kFactor = 0x100000001b3;

std::uint64_t mix(std::uint64_t digest, std::uint64_t value) { return (digest ^ value) * kFactor; }

const char* nameOf(SimJournal::Kind kind)
{
    switch (kind) {
    case SimJournal::Kind::step:
        return "step";
    case SimJournal::Kind::overlayMoved:
        return "overlay moved";
    case SimJournal::Kind::overlayCarried:
        return "overlay carried";
    case SimJournal::Kind::overlayShown:
        return "overlay shown";
    case SimJournal::Kind::overlayHidden:
        return "overlay hidden";
    case SimJournal::Kind::overlayDirty:
        return "overlay asks to be drawn";
    case SimJournal::Kind::overlayDrawn:
        return "overlay drawn";
    case SimJournal::Kind::log:
        return "log";
    case SimJournal::Kind::alert:
        return "alert";
    case SimJournal::Kind::prompt:
        return "prompt";
    case SimJournal::Kind::url:
        return "url";
    case SimJournal::Kind::save:
        return "save";
    case SimJournal::Kind::process:
        return "process";
    case SimJournal::Kind::menuBar:
        return "menu bar";
    case SimJournal::Kind::window:
        return "window";
    case SimJournal::Kind::shell:
        return "shell";
    case SimJournal::Kind::application:
        return "application";
    }
    return "";
}

} // namespace

void SimJournal::note(Kind kind, std::string_view text) { add({m_runLoop.now(), kind, 0, {}, std::string(text)}); }

void SimJournal::noteOverlay(Kind kind, std::int64_t overlay, const Rect& frame)
{
    add({m_runLoop.now(), kind, overlay, frame, {}});
}

void SimJournal::add(Entry entry)
{
    ++m_counts[static_cast<std::size_t>(entry.kind)];
    std::uint64_t digest = mix(m_digest, static_cast<std::uint64_t>(entry.at.count()));
    digest = mix(digest, static_cast<std::uint64_t>(entry.kind));
    digest = mix(digest, static_cast<std::uint64_t>(entry.overlay));
    for (const double value : {entry.frame.x, entry.frame.y, entry.frame.width, entry.frame.height})
        digest = mix(digest, std::bit_cast<std::uint64_t>(value));
    for (const char character : entry.text)
        digest = mix(digest, static_cast<unsigned char>(character));
    m_digest = digest;
    if (m_keepsEntries)
        m_entries.push_back(std::move(entry));
}

std::string SimJournal::line(const Entry& entry)
{
    char buffer[160];
    const double seconds = Seconds(entry.at).count();
    if (entry.overlay == 0) {
        std::snprintf(buffer, sizeof buffer, "%10.4f  %s: ", seconds, nameOf(entry.kind));
        return buffer + entry.text;
    }
    std::snprintf(buffer, sizeof buffer, "%10.4f  %s: #%lld at %.10g, %.10g size %.10g x %.10g", seconds,
                  nameOf(entry.kind), static_cast<long long>(entry.overlay), entry.frame.x, entry.frame.y,
                  entry.frame.width, entry.frame.height);
    return buffer;
}

} // namespace haloric
