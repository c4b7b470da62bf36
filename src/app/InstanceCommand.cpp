#include "app/InstanceCommand.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <system_error>

namespace haloric {
namespace {

constexpr std::string_view kPrefix = "haloric 1 ";
constexpr std::string_view kToggle = "toggle ";
constexpr std::string_view kDone = "done ";
constexpr std::string_view kRefused = "refused ";

struct PlainCommand {
    InstanceCommand::Kind kind;
    std::string_view name;
};

constexpr PlainCommand kPlainCommands[] = {{InstanceCommand::Kind::reopen, "reopen"},
                                           {InstanceCommand::Kind::quit, "quit"},
                                           {InstanceCommand::Kind::printSettings, "print-settings"}};

struct EffectSwitch {
    std::string_view name;
    bool Settings::*field;
};

constexpr EffectSwitch kSwitches[] = {{"border", &Settings::borderEnabled},
                                      {"glow", &Settings::glowEnabled},
                                      {"tint", &Settings::tintEnabled},
                                      {"dim", &Settings::dimEnabled},
                                      {"pulse", &Settings::pulseEnabled}};

} // namespace

std::string InstanceCommand::line() const
{
    const auto* const plain = std::ranges::find(kPlainCommands, kind, &PlainCommand::kind);
    return std::string(kPrefix) +
           (plain == std::end(kPlainCommands) ? std::string(kToggle) + effect : std::string(plain->name));
}

std::optional<InstanceCommand> InstanceCommand::parse(std::string_view line)
{
    if (!line.starts_with(kPrefix))
        return {};
    line.remove_prefix(kPrefix.size());
    const auto* const plain = std::ranges::find(kPlainCommands, line, &PlainCommand::name);
    if (plain != std::end(kPlainCommands))
        return InstanceCommand{.kind = plain->kind, .effect = {}};
    if (!line.starts_with(kToggle))
        return {};
    line.remove_prefix(kToggle.size());
    if (!switchOf(line))
        return {};
    return InstanceCommand{.kind = Kind::toggle, .effect = std::string(line)};
}

bool Settings::*InstanceCommand::switchOf(std::string_view effect)
{
    const auto* const found = std::ranges::find(kSwitches, effect, &EffectSwitch::name);
    return found == std::end(kSwitches) ? nullptr : found->field;
}

std::string InstanceCommand::effectNames()
{
    std::string names;
    for (const EffectSwitch& each : kSwitches)
        names += (names.empty() ? "" : ", ") + std::string(each.name);
    return names;
}

std::string InstanceReply::bytes() const
{
    return std::string(done ? kDone : kRefused) + std::to_string(text.size()) + "\n" + text;
}

std::optional<InstanceReply> InstanceReply::parse(std::string_view bytes)
{
    InstanceReply reply;
    reply.done = bytes.starts_with(kDone);
    if (!reply.done && !bytes.starts_with(kRefused))
        return {};
    bytes.remove_prefix(reply.done ? kDone.size() : kRefused.size());
    std::size_t length = 0;
    const char* const end = bytes.data() + bytes.size();
    const auto [position, error] = std::from_chars(bytes.data(), end, length);
    if (error != std::errc() || position == end || *position != '\n')
        return {};
    reply.text.assign(position + 1, end);
    return reply.text.size() == length ? std::optional(reply) : std::nullopt;
}

} // namespace haloric
