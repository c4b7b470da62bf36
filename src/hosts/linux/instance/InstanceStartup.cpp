#include "hosts/linux/instance/InstanceStartup.h"

#include <chrono>

#include <poll.h>

namespace haloric {
namespace {

// Between two attempts while the lock's holder is just starting or ending.
constexpr int kRetryMilliseconds = 20;

} // namespace

InstanceClient::Outcome InstanceStartup::ask(const std::filesystem::path& socket, const InstanceCommand& command) const
{
    return InstanceClient(socket, m_patience).ask(command);
}

InstanceClient::Outcome InstanceStartup::ask(const InstanceCommand& command) const
{
    InstanceClient::Outcome outcome;
    if (m_paths)
        outcome = ask(m_paths->socket, command);
    if (outcome.state != InstanceClient::State::absent || !m_elsewhere)
        return outcome;
    const auto other = m_elsewhere();
    if (!other)
        return outcome;
    outcome = ask(*other, command);
    if (outcome.state == InstanceClient::State::absent)
        outcome.state = InstanceClient::State::silent; // it runs, and does not listen
    return outcome;
}

int InstanceStartup::reportUnreachable()
{
    m_streams.errors << "haloric: another instance runs on this display and does not answer\n";
    return kNotReached;
}

std::optional<int> InstanceStartup::command(const InstanceCommand& command)
{
    const auto outcome = ask(command);
    switch (outcome.state) {
    case InstanceClient::State::absent:
        return {};
    case InstanceClient::State::silent:
        m_streams.errors << "haloric: the running instance does not answer\n";
        return kNotReached;
    case InstanceClient::State::answered:
        break;
    }
    if (outcome.reply.done) {
        m_streams.output << outcome.reply.text << std::flush;
        return kDone;
    }
    m_streams.errors << "haloric: " << outcome.reply.text << std::flush;
    return kRefused;
}

int InstanceStartup::requireCommand(const InstanceCommand& command)
{
    if (const auto exitCode = this->command(command))
        return *exitCode;
    m_streams.errors << "haloric: no instance is running on this display\n";
    return kNotReached;
}

InstanceStartup::Arrival InstanceStartup::arrive()
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::ceil<Clock::duration>(m_patience);
    while (m_paths) {
        auto lock = std::make_unique<InstanceLock>(*m_paths);
        if (lock->state() == InstanceLock::State::taken)
            return {.lock = std::move(lock), .exitCode = {}};
        if (lock->state() == InstanceLock::State::unavailable)
            break;
        const auto outcome = ask(m_paths->socket, {});
        if (outcome.state == InstanceClient::State::answered)
            return {.lock = nullptr, .exitCode = outcome.reply.done ? kDone : kRefused};
        if (Clock::now() >= end)
            return {.lock = nullptr, .exitCode = reportUnreachable()};
        poll(nullptr, 0, kRetryMilliseconds);
    }
    m_streams.errors << "haloric: no private folder for a socket: later starts will not reach this one\n";
    return {};
}

std::optional<int> InstanceStartup::giveWay(const Finder& claim)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::ceil<Clock::duration>(m_patience);
    while (const auto other = claim()) {
        const auto outcome = ask(*other, {});
        if (outcome.state == InstanceClient::State::answered)
            return outcome.reply.done ? kDone : kRefused;
        if (other->empty() || Clock::now() >= end)
            return reportUnreachable();
        poll(nullptr, 0, kRetryMilliseconds); // it is just ending
    }
    return {};
}

} // namespace haloric
