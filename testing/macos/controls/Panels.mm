// Alerts and open panels.
#include "controls/Menus.h"
#include "loop/MainLoop.h"
#include "windows/Windows.h"

#import <UniformTypeIdentifiers/UniformTypeIdentifiers.h>

using substitute::raise;

std::function<void(NSAlert*)> substitute::whileAlertRuns;
NSModalResponse substitute::alertResponse = NSAlertFirstButtonReturn;

@implementation NSAlert {
    NSWindow* _window;
    NSString* _messageText;
}
- (NSWindow*)window
{
    if (!_window) {
        _window = [[NSPanel alloc] initWithContentRect:NSMakeRect(0, 0, 260, 200)
                                             styleMask:NSWindowStyleMaskTitled
                                               backing:NSBackingStoreBuffered
                                                 defer:NO];
        _window.releasedWhenClosed = NO;
    }
    return _window;
}
+ (NSAlert*)alertWithError:(NSError*)e
{
    return [[self alloc] init];
}
- (void)setMessageText:(NSString*)t
{
    _messageText = [t copy];
}
- (NSString*)messageText
{
    return _messageText;
}
- (void)setInformativeText:(NSString*)t
{
}
- (void)setAlertStyle:(NSAlertStyle)s
{
}
- (void)setIcon:(NSImage*)i
{
}
- (NSButton*)addButtonWithTitle:(NSString*)t
{
    return nil;
}
// NSAlert runModal shows the alert's window, and orders it out when a button was pressed.
- (NSModalResponse)runModal
{
    [self.window makeKeyAndOrderFront:nil];
    if (substitute::whileAlertRuns)
        substitute::whileAlertRuns(self);
    [self.window orderOut:nil];
    if (substitute::keyWindow == self.window)
        substitute::keyWindow = nil;
    return substitute::alertResponse;
}
@end
@implementation NSSavePanel
@end
@implementation NSOpenPanel
+ (NSOpenPanel*)openPanel
{
    return [[self alloc] init];
}
- (void)setAllowedContentTypes:(NSArray*)t
{
}
- (void)setDirectoryURL:(NSURL*)u
{
}
- (void)setPrompt:(NSString*)p
{
}
- (NSModalResponse)runModal
{
    return NSModalResponseCancel;
}
- (NSURL*)URL
{
    return nil;
}
@end
@implementation UTType
@end
extern "C" UTType* const UTTypeApplicationBundle = [[UTType alloc] init];
