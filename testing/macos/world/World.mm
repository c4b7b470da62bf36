#include "world/World.h"

#include "loop/MainLoop.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <utility>

using substitute::World;
using Lock = std::lock_guard<std::recursive_mutex>;

World& World::the()
{
    static auto* one = new World;
    return *one;
}
namespace substitute {
std::map<std::string, int>& questions()
{
    static auto* const all = new std::map<std::string, int>;
    return *all;
}
Window* World::find(unsigned number)
{
    for (auto& w : windows)
        if (w.number == number)
            return &w;
    return nullptr;
}
Window* World::firstOf(int pid)
{
    for (auto& w : windows)
        if (w.pid == pid && w.layer == 0)
            return &w;
    return nullptr;
}
void World::toFront(unsigned number) // among its layer
{
    const auto it = std::ranges::find_if(windows, [&](const Window& w) { return w.number == number; });
    if (it == windows.end())
        return;
    const auto before = std::ranges::find_if(windows, [&](const Window& w) { return w.layer <= it->layer; });
    if (before != it)
        windows.splice(before, windows, it);
}
void World::toBack(unsigned number) // among its layer
{
    const auto it = std::ranges::find_if(windows, [&](const Window& w) { return w.number == number; });
    if (it == windows.end())
        return;
    const auto behind = std::ranges::find_if(windows, [&](const Window& w) { return w.layer < it->layer; });
    windows.splice(behind, windows, it);
}
unsigned World::open(int pid, CGRect frame)
{
    const Lock guard(lock);
    applications.emplace(pid, false);
    windows.push_back({++m_last, pid, frame});
    toFront(m_last);
    tellAccessibility(pid, "AXWindowCreated", m_last);
    return m_last;
}
void World::activate(int pid, unsigned number)
{
    const Lock guard(lock);
    toFront(number);
    tellAccessibility(pid, "AXFocusedWindowChanged", number);
    if (std::exchange(frontmost, pid) != pid)
        onMain([] {
            [NSWorkspace.sharedWorkspace.notificationCenter
                postNotificationName:NSWorkspaceDidActivateApplicationNotification
                              object:nil];
        });
}
void World::setFrame(unsigned number, CGRect frame)
{
    const Lock guard(lock);
    Window* w = find(number);
    if (!w)
        return;
    const CGRect old = std::exchange(w->frame, frame);
    if (old.size.width != frame.size.width || old.size.height != frame.size.height) {
        tellAccessibility(w->pid, "AXWindowResized", number);
        server(807, number);
    }
    if (old.origin.x != frame.origin.x || old.origin.y != frame.origin.y) {
        tellAccessibility(w->pid, "AXWindowMoved", number);
        server(806, number);
    }
}
void World::minimise(unsigned number)
{
    const Lock guard(lock);
    Window* w = find(number);
    w->minimised = true;
    w->onScreen = false;
    tellAccessibility(w->pid, "AXWindowMiniaturized", number);
    server(816, number);
}
void World::close(unsigned number)
{
    const Lock guard(lock);
    const int pid = find(number)->pid;
    windows.remove_if([&](const Window& w) { return w.number == number; });
    tellAccessibility(pid, "AXUIElementDestroyed", number);
    server(804, number);
}
void World::quit(int pid)
{
    const Lock guard(lock);
    applications.erase(pid);
    windows.remove_if([&](const Window& w) { return w.pid == pid; });
    if (frontmost == pid)
        frontmost = 0;
    onMain([] {
        [NSWorkspace.sharedWorkspace.notificationCenter
            postNotificationName:NSWorkspaceDidTerminateApplicationNotification
                          object:nil];
    });
}
void World::reset()
{
    const Lock guard(lock);
    windows.clear();
    applications.clear();
    frontmost = 0;
    buttons = 0;
    yieldedTo = 0;
    trusted = true;
    tapsRefused = libraryMissing = false;
    setMissingSymbols({});
    hanging.clear();
    unready.clear();
    waitsOnMain = 0;
    openedURLs().clear();
    forgetWindowServerClients();
}
}
