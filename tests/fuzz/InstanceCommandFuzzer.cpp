// The texts of the command channel: what parses is written as the same text.
#include "app/InstanceCommand.h"
#include "fuzz/Fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace haloric;
    const std::string_view text = fuzzText(data, size);
    if (const auto command = InstanceCommand::parse(text))
        fuzzRequire(command->line() == text, "a command that parses is written as the same line");
    if (const auto reply = InstanceReply::parse(text))
        fuzzRequire(InstanceReply::parse(reply->bytes()) == reply, "a reply that parses is read back as it is written");
    const InstanceReply made{.done = size % 2 == 0, .text = std::string(text)};
    fuzzRequire(InstanceReply::parse(made.bytes()) == made, "every reply is read back as it was written");
    return 0;
}
