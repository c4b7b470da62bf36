#include "app/InstanceCommand.h"

namespace haloric {
namespace {

using Kind = InstanceCommand::Kind;

TEST(InstanceCommandTest, every_command_equals_its_line_parsed_again)
{
    for (const InstanceCommand& command :
         {InstanceCommand{Kind::reopen, ""}, InstanceCommand{Kind::quit, ""}, InstanceCommand{Kind::printSettings, ""},
          InstanceCommand{Kind::toggle, "border"}, InstanceCommand{Kind::toggle, "pulse"}}) {
        EXPECT_EQ(InstanceCommand::parse(command.line()), command);
        EXPECT_LE(command.line().size(), InstanceCommand::kMaximumLength);
        EXPECT_EQ(command.line().find('\n'), std::string::npos);
    }
}

TEST(InstanceCommandTest, any_other_line_is_refused)
{
    for (const char* line :
         {"", "quit", "haloric 1 ", "haloric 2 quit", "haloric 1 quit ", "haloric 1 QUIT", "haloric 1 toggle",
          "haloric 1 toggle ", "haloric 1 toggle sound", "haloric 1 toggle border ", " haloric 1 quit", "\n"})
        EXPECT_EQ(InstanceCommand::parse(line), std::nullopt) << line;
    EXPECT_EQ(InstanceCommand::parse(std::string_view("haloric 1 quit\0", 15)), std::nullopt);
}

TEST(InstanceCommandTest, each_effect_has_its_switch)
{
    EXPECT_EQ(InstanceCommand::switchOf("border"), &Settings::borderEnabled);
    EXPECT_EQ(InstanceCommand::switchOf("glow"), &Settings::glowEnabled);
    EXPECT_EQ(InstanceCommand::switchOf("tint"), &Settings::tintEnabled);
    EXPECT_EQ(InstanceCommand::switchOf("dim"), &Settings::dimEnabled);
    EXPECT_EQ(InstanceCommand::switchOf("pulse"), &Settings::pulseEnabled);
    EXPECT_FALSE(InstanceCommand::switchOf("hotkey"));
    EXPECT_EQ(InstanceCommand::effectNames(), "border, glow, tint, dim, pulse");
}

TEST(InstanceReplyTest, every_reply_equals_its_bytes_parsed_again)
{
    for (const InstanceReply& reply :
         {InstanceReply{true, ""}, InstanceReply{false, "no\n"}, InstanceReply{true, "{\"a\":\n1}\n"}})
        EXPECT_EQ(InstanceReply::parse(reply.bytes()), reply);
}

TEST(InstanceReplyTest, a_part_of_a_reply_is_refused)
{
    const std::string whole = InstanceReply{true, "text"}.bytes();
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(InstanceReply::parse(whole.substr(0, length)), std::nullopt) << length;
    EXPECT_EQ(InstanceReply::parse(whole + "x"), std::nullopt);
}

TEST(InstanceReplyTest, nonsense_is_refused)
{
    for (const char* bytes : {"done\n", "done -1\n", "done x\n", "done 99999999999999999999999\n", "fine 0\n", "\n"})
        EXPECT_EQ(InstanceReply::parse(bytes), std::nullopt) << bytes;
}

} // namespace
} // namespace haloric
