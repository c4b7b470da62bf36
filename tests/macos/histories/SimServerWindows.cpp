#include "macos/histories/SimServerWindows.h"

#include "hosts/sim/desktop/SimOverlay.h"
#include "hosts/sim/form/SimOwnWindow.h"

#include <utility>

namespace haloric {
namespace {

class Overlay final : public substitute::ServerWindow {
public:
    Overlay(SimDesktop& desktop, const Rect& content, std::function<void(Canvas&)> draw)
        : m_overlay(desktop, content, 0, std::move(draw))
    {
    }

    std::int64_t number() const override { return m_overlay.windowNumber(); }
    Rect frame() const override { return m_overlay.believedFrame(); }
    double titleBarHeight() const override { return 0; }
    bool isVisible() const override { return m_overlay.isVisible(); }
    void setFrame(const Rect& frame) override { m_overlay.setFrame(frame); }
    void setLevel(std::int64_t level) override { m_overlay.setLayer(static_cast<int>(level)); }
    void setTitle(const std::string& /*title*/) override {}
    void center() override {}
    void makeKeyAndOrderFront() override { orderFront(Space::wherePlaced); }
    void orderOut() override { m_overlay.orderOut(); }
    void contentsAreOutdated() override { m_overlay.noteOutdated(); }
    void drawContents() override { m_overlay.draw(); }

    void orderFront(Space space) override
    {
        m_overlay.orderFront(space == Space::active ? SimSpaceOfWindow::active : SimSpaceOfWindow::wherePlaced);
    }

private:
    SimOverlay m_overlay;
};

class TitledWindow final : public substitute::ServerWindow {
public:
    TitledWindow(SimDesktop& desktop, const Rect& content, std::function<void()> closedByUser)
        : m_window(desktop, "",
                   {content.x, content.y - SimOwnWindow::kTitleBarHeight, content.width,
                    content.height + SimOwnWindow::kTitleBarHeight})
    {
        m_window.whenClosedByUser = std::move(closedByUser);
    }

    std::int64_t number() const override { return static_cast<std::int64_t>(m_window.number()); }
    Rect frame() const override { return m_window.frame(); }
    double titleBarHeight() const override { return m_window.titleBarHeight(); }
    bool isVisible() const override { return m_window.isVisible(); }
    void setFrame(const Rect& frame) override { m_window.setFrame(frame); }
    void setLevel(std::int64_t /*level*/) override {}
    void setTitle(const std::string& title) override { m_window.setTitle(title); }
    void center() override { m_window.center(); }
    void orderFront(Space /*space*/) override { m_window.orderFront(); }
    void makeKeyAndOrderFront() override { m_window.makeKeyAndOrderFront(); }
    void orderOut() override { m_window.close(); }
    void contentsAreOutdated() override {}
    void drawContents() override {}

private:
    SimOwnWindow m_window;
};

} // namespace

std::unique_ptr<substitute::ServerWindow> SimServerWindows::make(const Rect& content, bool hasTitleBar, Events events)
{
    if (hasTitleBar)
        return std::make_unique<TitledWindow>(m_desktop, content, std::move(events.closedByUser));
    return std::make_unique<Overlay>(m_desktop, content, std::move(events.draw));
}

} // namespace haloric
