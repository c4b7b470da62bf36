#include "hosts/x11/windows/X11ClientReader.h"

namespace haloric {
namespace {

constexpr std::uint32_t kMask = 0x001FFFFF;
constexpr xcb_window_t kWindow = 0x00A0000C;

ProcessID choose(std::optional<std::uint32_t> serverId, std::optional<std::uint32_t> propertyId,
                 xcb_window_t window = kWindow)
{
    return X11ProcessIds::choose(serverId, propertyId, window, kMask);
}

TEST(X11ProcessIds, what_the_server_knows_comes_before_what_the_window_says)
{
    EXPECT_EQ(choose(12, 34), ProcessID{12});
    EXPECT_EQ(choose(12, std::nullopt), ProcessID{12});
    EXPECT_EQ(choose(std::nullopt, 34), ProcessID{34});
}

TEST(X11ProcessIds, numbers_that_no_process_can_have_are_passed_over)
{
    EXPECT_EQ(choose(0, 34), ProcessID{34});
    EXPECT_EQ(choose(0xFFFFFFFF, 34), ProcessID{34});
    EXPECT_EQ(choose(0, 0x80000000), choose(std::nullopt, std::nullopt));
}

TEST(X11ProcessIds, windows_of_one_connection_share_a_made_up_process)
{
    const ProcessID made = choose(std::nullopt, std::nullopt);
    EXPECT_GT(static_cast<std::int32_t>(made), 4'194'304);
    EXPECT_EQ(choose(std::nullopt, std::nullopt, kWindow + 0x1000), made);
    EXPECT_NE(choose(std::nullopt, std::nullopt, kWindow + kMask + 1), made);
}

} // namespace
} // namespace haloric
