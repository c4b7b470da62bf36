// Moves of overlays through the window server, past the toolkit.
#include "contract/OverlayContract.h"
#include "platform/WindowServerCalls.h"

namespace haloric {
namespace {

class OverlayTransactionContract : public OverlayContract {
protected:
    void SetUp() override
    {
        using Entry = WindowServerCalls::Entry;
        for (const Entry entry : {Entry::mainConnection, Entry::getBounds, Entry::create, Entry::move, Entry::commit})
            ASSERT_TRUE(m_calls.has(entry)) << WindowServerCalls::symbol(entry);
    }

    void carry(WindowNumber number, Point topLeft)
    {
        const auto transaction = m_calls.create(m_calls.mainConnection());
        ASSERT_TRUE(transaction);
        transaction->move(number, topLeft);
        transaction->commit();
    }

    std::optional<Rect> bounds(WindowNumber number) { return m_calls.getBounds(m_calls.mainConnection(), number); }

private:
    WindowServerCalls& m_calls = host->windowServerCalls();
    Subscription m_loaded = m_calls.load([](WindowServerEvent, WindowNumber) {});
};

TEST_P(OverlayTransactionContract, a_transaction_moves_an_overlay_past_the_toolkit)
{
    const auto window = shownOverlay();
    carry(numberOf(*window), {300, 210});

    const Rect expected{300, 210, kOverlay.width, kOverlay.height};
    EXPECT_TRUE(host->waitUntil([&] { return bounds(numberOf(*window)) == expected; }));
    EXPECT_EQ(window->frame(), kOverlay) << "the toolkit made no move";
}

TEST_P(OverlayTransactionContract, the_toolkit_puts_an_overlay_back_after_a_transaction)
{
    const auto window = shownOverlay();
    carry(numberOf(*window), {300, 210});

    const Rect target{40, 60, kOverlay.width, kOverlay.height};
    window->setFrame(target, false);
    EXPECT_TRUE(host->waitUntil([&] { return bounds(numberOf(*window)) == inGlobalSpace(target); }));
}

INSTANTIATE_TEST_SUITE_P(Hosts, OverlayTransactionContract, testing::ValuesIn(contractHosts()), contractHostName);

} // namespace
} // namespace haloric
