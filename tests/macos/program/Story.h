// Stories of the whole program: it runs as its main function makes it, in a process of its own, while the story changes
// the desktop outside it. A crash, a leak and a report of a sanitizer show in the exit code of that process.
#pragma once

#include "world/World.h"

#import <AppKit/AppKit.h>

#include <functional>
#include <string>
#include <vector>

namespace haloric {

struct Story {
    std::function<void()> before = {}; // the desktop that the program finds; may be empty
    std::function<void()> then = {};   // what happens once it runs
    std::function<void()> end = {};    // how the user ends it afterwards; empty: by the menu
};

// Fails the test unless the story comes to its end and the program then ends with 0.
void expectToEndWell(const Story& story);

// The rest is for stories, in their own process. Main thread.

constexpr int kEditor = 6001; // applications outside the program
constexpr int kBrowser = 6002;

// A window of the application, which is then the frontmost one. Global space.
unsigned openInFront(int pid, CGRect frame);

// Turns the loop until it holds. Ends the process with a failure if that takes too long.
void waitUntil(const char* what, const std::function<bool()>& holds);

// Ends the process with a failure unless it holds.
void require(bool holds, const char* what);

// Turns the loop until the program has looked twice at what it may do and what is in front.
void waitForTwoPolls();

// What the user sees.

std::vector<CGRect> overlays();      // the shown ones, front to back; global space
bool isHighlighted(unsigned window); // an overlay reaches as far beyond the window on each side, and no other is shown
bool isSurrounded(unsigned window);  // as above, whatever else is shown
bool isNothingHighlighted();
std::vector<std::string>& alerts(); // the messages of those shown so far
bool isSettingsWindowShown();
NSMenuItem* menuItem(NSString* title); // of the status item, as the user opens its menu; nil if it is not to be seen
void choose(NSString* title);

} // namespace haloric
