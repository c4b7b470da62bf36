// The menu's check for updates, against a feed on the loopback interface. The alerts' texts are tested with the
// controller.
#include "support/LoopbackServer.h"
#include "testing/x11/FileContents.h"
#include "testing/x11/Key.h"
#include "x11/program/shell/Shell.h"

#include <condition_variable>
#include <fstream>
#include <mutex>

namespace haloric {
namespace {

constexpr const char* kAlert = "Haloric";
constexpr const char* kProgress = "Software Update";
constexpr const char* kPage = "https://example.org/get";

std::string feed(const std::string& version, const std::string& notes = {})
{
    return R"(<rss xmlns:s="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel><item><s:version>)" +
           version + "</s:version><s:shortVersionString>0." + version + "</s:shortVersionString><link>" + kPage +
           "</link><description>" + notes + "</description></item></channel></rss>";
}

// The server's answer. waitFor() blocks the server's thread until the test's thread has set it.
class Answer {
public:
    void set(const std::string& feed)
    {
        {
            const std::lock_guard guard(m_lock);
            m_feed = feed;
        }
        m_isSet.notify_all();
    }
    std::string waitFor()
    {
        std::unique_lock lock(m_lock);
        m_isSet.wait(lock, [this] { return m_feed.has_value(); });
        return *m_feed;
    }

private:
    std::mutex m_lock;
    std::condition_variable m_isSet;
    std::optional<std::string> m_feed;
};

class UpdateShell : public Shell {
protected:
    void SetUp() override
    {
        install({{"SUFeedURL", server.address("/feed.xml")}});
        installBrowser();
        startInTray();
    }
    void TearDown() override { answer.set(""); }

    // Activates the menu item and lets the server answer.
    void check(const std::string& feed)
    {
        answer.set(feed);
        ASSERT_TRUE(shell->choose(MenuEntry::checkForUpdates));
        ASSERT_TRUE(shell->waitUntilActive(kAlert)) << log();
        EXPECT_TRUE(waitUntilGone(kProgress));
    }

    // The picture of the alert once it is painted.
    ScreenImage alert()
    {
        const ScreenRect frame = shell->frame(kAlert);
        EXPECT_TRUE(
            waitForPixel(frame.x + frame.width / 2, frame.bottom() - 2, kAccent)); // the border covers the alert's edge
        return settled(shell->content(kAlert));
    }

    bool waitUntilGone(const char* title)
    {
        return session.observer().waitUntil([this, title] { return shell->window(title) == XCB_WINDOW_NONE; });
    }

    // The web pages that were opened, one per line.
    std::string openedPages() { return contentsOf(m_pages); }

    Answer answer;
    LoopbackServer server{[this](const std::string&) { return LoopbackServer::feed(answer.waitFor()); }};

private:
    // Makes a script the default browser.
    void installBrowser()
    {
        const auto script = session.server().folder() / "browser";
        std::ofstream(script) << "#!/bin/sh\necho \"$1\" >>'" << m_pages.string() << "'\n";
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
        const std::filesystem::path data = session.environment().at("XDG_DATA_HOME");
        std::filesystem::create_directories(data / "applications");
        std::ofstream(data / "applications" / "org.test.Browser.desktop")
            << "[Desktop Entry]\nType=Application\nName=Browser\nExec=" << script.string() << " %u\n"
            << "MimeType=x-scheme-handler/https;\n";
        const std::filesystem::path config = session.environment().at("XDG_CONFIG_HOME");
        std::ofstream(config / "mimeapps.list")
            << "[Default Applications]\nx-scheme-handler/https=org.test.Browser.desktop\n";
    }

    std::filesystem::path m_pages = session.server().folder() / "pages";
};
INSTANTIATE_TEST_SUITE_P(Desktops, UpdateShell, testing::Values(kOpenboxPicom), nameOf);

TEST_P(UpdateShell, a_newer_version_is_offered_with_its_notes_and_its_page_is_opened)
{
    check(feed("8"));
    const int height = alert().area().height;
    press(Key::kEscape); // later
    ASSERT_TRUE(waitUntilGone(kAlert));
    check(feed("8", "One.&lt;br/&gt;Two.&lt;br/&gt;Three.&lt;br/&gt;Four."));
    EXPECT_GT(alert().area().height, height + 3 * 10) << "four lines more";
    EXPECT_EQ(openedPages(), "");
    press(Key::kReturn);
    EXPECT_TRUE(session.observer().waitUntil([this] { return openedPages() == std::string(kPage) + "\n"; }));
    EXPECT_TRUE(waitUntilGone(kAlert));
    EXPECT_EQ(server.requests().size(), 2U);
}

TEST_P(UpdateShell, the_same_version_and_an_invalid_feed_show_different_alerts)
{
    check(feed("7"));
    const ScreenImage upToDate = alert();
    press(Key::kReturn);
    ASSERT_TRUE(waitUntilGone(kAlert));
    check("<rss><channel>");
    const ScreenImage failed = alert();
    EXPECT_TRUE(failed.area() != upToDate.area() || failed != upToDate);
    press(Key::kReturn);
    ASSERT_TRUE(waitUntilGone(kAlert));
    check(feed("7"));
    EXPECT_EQ(alert().pixels(), upToDate.pixels());
    press(Key::kReturn);
    ASSERT_TRUE(waitUntilGone(kAlert));
    EXPECT_EQ(openedPages(), "");
}

TEST_P(UpdateShell, during_the_check_a_window_shows_progress_and_the_program_keeps_working)
{
    ASSERT_TRUE(shell->choose(MenuEntry::checkForUpdates));
    ASSERT_TRUE(shell->waitUntilActive(kProgress));
    EXPECT_TRUE(haloric->waitForHighlight(shell->frame(kProgress)));
    ASSERT_TRUE(client->focus());
    EXPECT_TRUE(waitForBorder(*client));
    EXPECT_EQ(shell->window(kAlert), static_cast<xcb_window_t>(XCB_WINDOW_NONE));
    answer.set(feed("7"));
    EXPECT_TRUE(waitUntilGone(kProgress));
    EXPECT_TRUE(session.observer().waitUntil([this] { return shell->window(kAlert) != XCB_WINDOW_NONE; }));
}

TEST_P(UpdateShell, a_cancelled_check_shows_no_alert_and_the_next_one_does)
{
    ASSERT_TRUE(shell->choose(MenuEntry::checkForUpdates));
    ASSERT_TRUE(shell->waitUntilActive(kProgress));
    press(Key::kReturn); // its only button
    ASSERT_TRUE(waitUntilGone(kProgress));
    answer.set(feed("8"));
    waitUntilIdle();
    EXPECT_EQ(shell->window(kAlert), static_cast<xcb_window_t>(XCB_WINDOW_NONE));
    check(feed("8"));
}

TEST_P(UpdateShell, the_end_of_the_program_ends_a_running_check)
{
    ASSERT_TRUE(shell->choose(MenuEntry::checkForUpdates));
    ASSERT_TRUE(shell->waitUntilActive(kProgress));
    EXPECT_EQ(haloric->stop(), 0) << log();
}

} // namespace
} // namespace haloric
