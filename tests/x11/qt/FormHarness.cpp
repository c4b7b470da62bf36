#include "x11/qt/FormHarness.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

namespace haloric {

namespace {

constexpr int kMostTabs = 30;
const std::string kAnswer = "= ";
const std::string kNowhere = "nowhere";

} // namespace

FormHarness::FormHarness(X11Session& session, const Environment& environment) : m_session(session)
{
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        throw std::runtime_error("cannot make a socket");
    m_commands = ends[0];
    ChildProcess::Options options{{HALORIC_FORM_HARNESS, std::to_string(ends[1])}, session.environment(), {}, ends[1]};
    for (const auto& [name, value] : environment)
        options.environment[name] = value;
    m_process = std::make_unique<ChildProcess>(options);
    ::close(ends[1]);
    if (!reports("ready"))
        throw std::runtime_error("the program does not start: " + m_process->standardError());
}

FormHarness::~FormHarness() { ::close(m_commands); }

void FormHarness::send(const std::string& line)
{
    const std::string text = line + "\n";
    if (::send(m_commands, text.data(), text.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(text.size()))
        throw std::runtime_error("the program has gone: " + m_process->standardError());
}

void FormHarness::takeIn()
{
    const std::string& output = m_process->standardOutput();
    for (auto end = output.find('\n', m_read); end != std::string::npos; end = output.find('\n', m_read)) {
        const std::string line = output.substr(m_read, end - m_read);
        m_read = end + 1;
        if (line.starts_with(kAnswer))
            m_answers.push_back(line.substr(kAnswer.size()));
        else
            m_reports.push_back(line);
    }
}

std::optional<std::string> FormHarness::report(const std::string& start)
{
    std::optional<std::string> found;
    const auto isReported = [&] {
        takeIn();
        while (!found && !m_reports.empty()) {
            if (m_reports.front().starts_with(start))
                found = m_reports.front();
            m_reports.pop_front();
        }
        return found.has_value();
    };
    if (!m_session.observer().waitUntil(isReported))
        m_session.keepFailure("not-reported");
    return found;
}

std::string FormHarness::ask(const std::string& question)
{
    send(question);
    const auto isAnswered = [this] {
        takeIn();
        return !m_answers.empty();
    };
    if (!m_session.observer().waitUntil(isAnswered))
        throw std::runtime_error("no answer: " + question);
    const std::string answer = m_answers.front();
    m_answers.pop_front();
    return answer;
}

bool FormHarness::hasReported(const std::string& start)
{
    focused(); // its answer follows all earlier reports
    return std::ranges::any_of(m_reports, [&start](const std::string& line) { return line.starts_with(start); });
}

std::string FormHarness::focused() { return ask("focus"); }

std::string FormHarness::described(const std::string& name) { return ask("describe " + name); }

std::string FormHarness::toolTip(const std::string& item) { return ask("tooltip " + item); }

std::string FormHarness::dialogColor() { return ask("chosen"); }

std::string FormHarness::labels(const std::string& title) { return ask("labels " + title); }

bool FormHarness::waitForAvailable(const std::string& size)
{
    return m_session.observer().waitUntil([&] { return ask("available") == size; });
}

bool FormHarness::isVisible(const std::string& name) { return ask("where " + name) != kNowhere; }

ScreenRect FormHarness::place(const std::string& name)
{
    std::string last;
    // A new window may still be moving to its position.
    const auto isSettled = [&] {
        const std::string now = ask("where " + name);
        return now != kNowhere && now == std::exchange(last, now);
    };
    ScreenRect place;
    if (!m_session.observer().waitUntil(isSettled)) {
        m_session.keepFailure("not-found");
        return place;
    }
    std::istringstream(last) >> place.x >> place.y >> place.width >> place.height;
    return place;
}

bool FormHarness::click(const std::string& name, std::uint8_t button)
{
    const ScreenRect found = place(name);
    m_session.input().moveTo(found.x + found.width / 2, found.y + found.height / 2);
    m_session.input().press(button);
    m_session.input().release(button);
    return found.width > 0;
}

void FormHarness::press(std::uint32_t keySymbol)
{
    m_session.input().pressKey(keySymbol);
    m_session.input().releaseKey(keySymbol);
}

bool FormHarness::showForm()
{
    send("show");
    return m_session.observer().waitUntil([this] { return !focused().empty(); });
}

bool FormHarness::waitForFocus(const std::string& name)
{
    return m_session.observer().waitUntil([&] { return focused() == name; });
}

bool FormHarness::tabTo(const std::string& name)
{
    for (int tabs = 0; tabs < kMostTabs && focused() != name; ++tabs) {
        const std::string before = focused();
        press(Key::kTab);
        if (!m_session.observer().waitUntil([&] { return focused() != before; }))
            return false;
    }
    return focused() == name;
}

} // namespace haloric
