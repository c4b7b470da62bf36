// A hostile desktop: broken lists of windows, and lists of thousands. After each the program highlights the next
// window, is at rest, and has grown neither in memory nor in descriptors.
//
// HALORIC_HOSTILE_ROUNDS multiplies the storms, for a long run by hand.
#include "testing/x11/ProcessFigures.h"
#include "x11/program/scenes/Scene.h"

#include <cstring>
#include <random>

namespace haloric {
namespace {

// The address sanitizer keeps freed memory for a while.
#ifdef __SANITIZE_ADDRESS__
constexpr double kMostGrowth = 512; // MB
#else
constexpr double kMostGrowth = 96;
#endif

std::size_t rounds()
{
    const char* text = std::getenv("HALORIC_HOSTILE_ROUNDS");
    return text ? std::strtoul(text, nullptr, 10) : 1;
}

class HostileScene : public Scene {
protected:
    void SetUp() override
    {
        first = openFocused({.title = "first", .content = {200, 200, 500, 300}});
        startAround(*first);
        before = ProcessFigures::of(haloric->pid());
    }

    std::uint32_t random() { return static_cast<std::uint32_t>(m_random()); }
    template <class Value>
    Value oneOf(const std::vector<Value>& values)
    {
        return values[random() % values.size()];
    }

    // Every window that a forged event can be about: of clients, of the program, of nothing.
    std::vector<xcb_window_t> targets()
    {
        std::vector<xcb_window_t> windows{first->window(), session.observer().topLevelOf(first->window()),
                                          session.observer().root(), XCB_WINDOW_NONE, 0x7FFFFFFF};
        for (const RootChild& overlay : haloric->overlays())
            windows.push_back(overlay.window);
        return windows;
    }

    void expectUnharmed()
    {
        ASSERT_TRUE(haloric->process().isRunning()) << log();
        const auto next = openFocused({.title = "next", .content = {1000, 550, 500, 300}});
        ASSERT_TRUE(waitForBorder(*next)) << log();
        settled({0, 0, 1920, 1080});
        const auto after = ProcessFigures::of(haloric->pid());
        EXPECT_LE(after.descriptors, before.descriptors + 2);
        EXPECT_LE(after.proportionalMegabytes, before.proportionalMegabytes + kMostGrowth);
        expectRest();
        RecordProperty("processorSeconds", std::to_string(after.processorSeconds - before.processorSeconds));
    }

    // While the X server works for the test, the program has nothing to do. A busy machine slows both alike.
    void expectRest()
    {
        constexpr int kPictures = 60;
        const auto program = ProcessFigures::of(haloric->pid()).processorSeconds;
        const auto server = ProcessFigures::of(session.server().pid()).processorSeconds;
        for (int picture = 0; picture < kPictures; ++picture)
            session.observer().capture();
        const auto used = ProcessFigures::of(haloric->pid()).processorSeconds - program;
        const auto served = ProcessFigures::of(session.server().pid()).processorSeconds - server;
        EXPECT_LT(used, served / 2) << "the program works although nothing happens: " << used << " s beside " << served;
    }

    TestConnection hostile{session.display()};
    std::unique_ptr<TestClient> first;
    ProcessFigures before;

private:
    std::minstd_rand m_random{1};
};
INSTANTIATE_TEST_SUITE_P(Desktops, HostileScene, testing::Values(kOpenbox), nameOf);

TEST_P(HostileScene, broken_lists_of_the_window_manager_leave_it_unharmed)
{
    const std::vector<std::string> ofTheRoot{"_NET_ACTIVE_WINDOW", "_NET_CLIENT_LIST", "_NET_CLIENT_LIST_STACKING",
                                             "_NET_CURRENT_DESKTOP", "_NET_SHOWING_DESKTOP"};
    std::map<std::string, std::vector<std::uint32_t>> sound;
    for (const std::string& name : ofTheRoot)
        sound[name] = hostile.values(hostile.root(), name);
    const auto windows = targets();
    for (std::size_t count = 0; count < 3000 * rounds(); ++count) {
        std::vector<std::uint32_t> data(random() % 40);
        for (std::uint32_t& value : data)
            value = random() % 2 == 0 ? oneOf(windows) : random();
        hostile.setValues(hostile.root(), oneOf(ofTheRoot),
                          oneOf<xcb_atom_t>({XCB_ATOM_WINDOW, XCB_ATOM_WINDOW, XCB_ATOM_CARDINAL}), data);
        if (count % 50 == 0)
            hostile.synchronize();
    }
    for (const auto& [name, values] : sound) {
        const bool isNumber = name == "_NET_CURRENT_DESKTOP" || name == "_NET_SHOWING_DESKTOP";
        hostile.setValues(hostile.root(), name, isNumber ? XCB_ATOM_CARDINAL : XCB_ATOM_WINDOW, values);
    }
    hostile.synchronize();
    expectUnharmed();
}

TEST_P(HostileScene, thirteen_thousand_windows_leave_it_unharmed)
{
    constexpr std::size_t kWindows = 13'000;
    std::vector<std::uint32_t> windows;
    for (std::size_t count = 0; count < kWindows; ++count) {
        const std::uint32_t isOverrideRedirect[] = {1};
        windows.push_back(xcb_generate_id(hostile.raw()));
        xcb_create_window(hostile.raw(), XCB_COPY_FROM_PARENT, windows.back(), hostile.root(),
                          static_cast<std::int16_t>(count % 1900), static_cast<std::int16_t>(count / 1900), 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                          isOverrideRedirect);
        xcb_map_window(hostile.raw(), windows.back());
    }
    hostile.synchronize();
    // As if the window manager managed them all.
    const auto list = hostile.values(hostile.root(), "_NET_CLIENT_LIST");
    hostile.setValues(hostile.root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, windows);
    hostile.setValues(hostile.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, windows);
    hostile.synchronize();
    hostile.setValues(hostile.root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, list);
    hostile.setValues(hostile.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, list);
    for (const std::uint32_t window : windows)
        xcb_destroy_window(hostile.raw(), window);
    hostile.synchronize();
    expectUnharmed();
}

} // namespace
} // namespace haloric
