// The desktop outside the program: applications, windows, pointer, screens.
// Tests change it; the stand-ins report it. Global space.
#pragma once

#include "foundation/Foundation.h"

#import <CoreGraphics/CoreGraphics.h>

#include <list>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace substitute {
struct Display {
    unsigned number;
    CGRect frame;
    double scale;
};

struct Window {
    unsigned number;
    int pid;
    CGRect frame;
    bool onScreen = true, minimised = false;
    long layer = 0;
};
class World {
public:
    static World& the();
    std::recursive_mutex lock;
    std::list<Window> windows;        // front to back
    std::map<int, bool> applications; // pid, hidden
    int frontmost = 0;
    unsigned buttons = 0;
    CGFloat height = 900;        // of the primary screen
    bool trusted = true;         // whether the user lets the program use Accessibility
    bool tapsRefused = false;    // whether the user keeps the program from watching input
    bool libraryMissing = false; // of the window server's functions
    std::set<int> hanging;       // applications that answer nothing; the lock is held
    std::set<int> unready;       // applications that do not serve Accessibility yet; the lock is held
    int waitsOnMain = 0;         // how often the main thread waited for an application that hangs

    unsigned open(int pid, CGRect frame);
    void activate(int pid, unsigned number);
    void setFrame(unsigned number, CGRect frame);
    void minimise(unsigned number);
    void close(unsigned number);
    void quit(int pid);
    void button(int type, bool down); // NSEventType
    void tap(int type, long key, unsigned long flags);
    void reset();
    Window* find(unsigned number);
    Window* firstOf(int pid);
    void server(unsigned event, unsigned number); // private notifications
    void toFront(unsigned number);
    void toBack(unsigned number);

private:
    unsigned m_last = 100;
};

extern std::vector<Display> displays;

// From the world to the stand-ins; `World::lock` is held.
void tellAccessibility(int pid, const char* name, unsigned number);
void forgetWindowServerClients();

// What the library of the window server's functions lacks. Main thread.
void setMissingSymbols(std::set<std::string> symbols);

// Another arrangement of the screens; the first one is the primary one. Windows keep their places in global space. Main
// thread.
void setDisplays(std::vector<Display> arrangement);

// Addresses that the program had opened. Main thread.
std::vector<std::string>& openedURLs();

// How often a question was put to another process since it was last cleared, by the name of the call. Main thread.
std::map<std::string, int>& questions();

// Makes the application frontmost and tells the workspace's observers. False for one that does not run.
bool activate(int pid);

int frontmostProcess(); // 0: none
extern int yieldedTo;   // the process that the active application lets be activated next; 0: none

} // namespace substitute
