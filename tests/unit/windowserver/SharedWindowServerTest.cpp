#include "windowserver/SharedWindowServer.h"

#include "WindowServerFixture.h"

namespace haloric {
namespace {

class SharedWindowServerTest : public WindowServerFixture {
protected:
    SharedWindowServer shared{library, processes, loop, log};
};

TEST_F(SharedWindowServerTest, nothing_is_loaded_and_nothing_logged_before_the_first_use)
{
    library.canBeOpened = false;
    EXPECT_TRUE(library.calls.empty());
    EXPECT_TRUE(log.lines.empty());
    shared.get();
    EXPECT_EQ(library.calls, Calls{"load()"});
    EXPECT_EQ(log.lines, Lines{kUnavailableLine});
}

TEST_F(SharedWindowServerTest, every_call_returns_the_same_bridge)
{
    WindowServer* const first = &shared.get();
    library.forgetCalls();
    EXPECT_EQ(&shared.get(), first);
    EXPECT_TRUE(library.calls.empty());
}

} // namespace
} // namespace haloric
