#include "hosts/linux/instance/InstanceStartup.h"

#include <chrono>

#include <poll.h>

namespace haloric {
namespace {

// Between two attempts while the lock's holder is just starting or ending.
constexpr int kRetryMilliseconds = 20;

} // namespace

std::optional<int> InstanceStartup::command(const InstanceCommand& command)
{
    if (!m_paths)
        return {};
    const auto outcome = InstanceClient(m_paths->socket, m_patience).ask(command);
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
        const auto outcome = InstanceClient(m_paths->socket, m_patience).ask({});
        if (outcome.state == InstanceClient::State::answered)
            return {.lock = nullptr, .exitCode = outcome.reply.done ? kDone : kRefused};
        if (Clock::now() >= end) {
            m_streams.errors << "haloric: another instance runs on this display and does not answer\n";
            return {.lock = nullptr, .exitCode = kNotReached};
        }
        poll(nullptr, 0, kRetryMilliseconds);
    }
    m_streams.errors << "haloric: no private folder for a socket: later starts will not reach this one\n";
    return {};
}

} // namespace haloric
