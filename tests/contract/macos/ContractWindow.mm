// An application with one window, for the contract tests of macOS. Takes commands as lines on standard input, in
// AppKit's coordinates, and answers each with a line once it has been done:
//
//   at its start       ready NUMBER
//   frame X Y W H      done X Y W H
//   where              done X Y W H
//   focus, minimise    done X Y W H
//   close              ends the application
#import <AppKit/AppKit.h>

#include <iostream>
#include <sstream>
#include <string>

namespace {

NSWindow* makeWindow()
{
    NSWindow* window =
        [[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 300, 200)
                                    styleMask:NSWindowStyleMaskTitled | NSWindowStyleMaskClosable |
                                              NSWindowStyleMaskMiniaturizable | NSWindowStyleMaskResizable
                                      backing:NSBackingStoreBuffered
                                        defer:NO];
    window.releasedWhenClosed = NO;
    window.title = @"Contract";
    return window;
}

void answer(NSWindow* window)
{
    const NSRect frame = window.frame;
    std::cout << "done " << frame.origin.x << ' ' << frame.origin.y << ' ' << frame.size.width << ' '
              << frame.size.height << std::endl;
}

void perform(const std::string& line, NSWindow* window)
{
    std::istringstream words(line);
    std::string verb;
    words >> verb;
    if (verb == "close") {
        [window close];
        [NSApp terminate:nil];
    } else if (verb == "frame") {
        double x = 0;
        double y = 0;
        double width = 0;
        double height = 0;
        words >> x >> y >> width >> height;
        [window setFrame:NSMakeRect(x, y, width, height) display:YES];
    } else if (verb == "focus") {
        [NSApp activateIgnoringOtherApps:YES];
        [window makeKeyAndOrderFront:nil];
    } else if (verb == "minimise") {
        [window miniaturize:nil];
    }
    answer(window);
}

void readCommands(NSWindow* window)
{
    for (std::string line; std::getline(std::cin, line);)
        dispatch_async(dispatch_get_main_queue(), ^{
          perform(line, window);
        });
    dispatch_async(dispatch_get_main_queue(), ^{ // the test has ended
      [NSApp terminate:nil];
    });
}

} // namespace

int main()
{
    @autoreleasepool {
        NSApplication* application = NSApplication.sharedApplication;
        [application setActivationPolicy:NSApplicationActivationPolicyRegular];
        [application finishLaunching];
        NSWindow* window = makeWindow();
        [window makeKeyAndOrderFront:nil];
        std::cout << "ready " << window.windowNumber << std::endl;
        dispatch_async(dispatch_get_global_queue(QOS_CLASS_USER_INITIATED, 0), ^{
          readCommands(window);
        });
        [application run];
    }
    return 0;
}
