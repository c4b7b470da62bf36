// Overlays that are moved through the window server, past the toolkit.
#include "contract/OverlayContract.h"
#include "platform/WindowServerLibrary.h"
#include "windowserver/WindowServer.h"

namespace haloric {
namespace {

class OverlayTransactionContract : public OverlayContract {
protected:
    void SetUp() override
    {
        m_library = host->windowServerLibrary().open(WindowServer::kFrameworkPath, WindowServerLibrary::kLazy);
        ASSERT_TRUE(m_library);
        m_entries = WindowServerEntries::find(*m_library);
        ASSERT_TRUE(m_entries.canMove() && m_entries.canGetBounds());
    }

    void carry(WindowNumber number, WindowServerEntries::CPoint topLeft)
    {
        void* transaction = m_entries.create(m_entries.mainConnection());
        ASSERT_TRUE(transaction);
        m_entries.move(transaction, static_cast<std::uint32_t>(number), topLeft);
        m_entries.commit(transaction, 0);
        host->windowServerLibrary().release(transaction);
    }

    std::optional<Rect> bounds(WindowNumber number)
    {
        WindowServerEntries::CRect rect{};
        if (m_entries.getBounds(m_entries.mainConnection(), static_cast<std::uint32_t>(number), &rect) != 0)
            return std::nullopt;
        return Rect{rect.x, rect.y, rect.width, rect.height};
    }

private:
    std::unique_ptr<OpenedLibrary> m_library;
    WindowServerEntries m_entries;
};

TEST_P(OverlayTransactionContract, a_transaction_moves_an_overlay_past_the_toolkit)
{
    const auto window = shownOverlay();
    carry(numberOf(*window), {300, 210});

    const Rect expected{300, 210, kOverlay.width, kOverlay.height};
    EXPECT_TRUE(host->waitUntil([&] { return bounds(numberOf(*window)) == expected; }));
    EXPECT_EQ(window->frame(), kOverlay) << "the toolkit was not asked";
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
