#include "windows/Windows.h"
#include "world/Backing.h"

// A window of the program that it did not make itself, such as the standard About panel.
@interface RTForeignWindow : NSWindow {
@public
    haloric::OwnWindow window;
}
@end
@implementation RTForeignWindow
- (NSRect)frame
{
    return NSMakeRect(window.frame.x, window.frame.y, window.frame.width, window.frame.height);
}
- (NSRect)contentLayoutRect
{
    return NSMakeRect(0, 0, window.frame.width, window.contentLayoutHeight);
}
- (NSInteger)windowNumber
{
    return static_cast<NSInteger>(window.number);
}
- (BOOL)isVisible
{
    return window.visible;
}
@end

NSWindow* substitute::windowBehind(const std::optional<haloric::OwnWindow>& window)
{
    if (!window)
        return nil;
    for (NSWindow* one in windows())
        if (one.windowNumber == window->number)
            return one;
    RTForeignWindow* made = [[RTForeignWindow alloc] init];
    made->window = *window;
    const auto screens = backing()->adapters.screens.all(); // the window server's
    const double height = screens.empty() ? 0 : screens.front().frame.height;
    made->window.frame = flippedByAppKit(haloric::flippedVertically(window->frame, height));
    return made;
}
