// Alerts and open panels.
#include "platform/Panels.h"
#include "controls/Menus.h"
#include "loop/MainLoop.h"
#include "platform/Alerts.h"
#include "windows/Windows.h"
#include "world/Backing.h"

#import <UniformTypeIdentifiers/UniformTypeIdentifiers.h>

using substitute::raise;
using substitute::text;

std::function<void(NSAlert*)> substitute::whileAlertRuns;
NSModalResponse substitute::alertResponse = NSAlertFirstButtonReturn;

NSError* substitute::errorBehind(const haloric::PlatformError& error)
{
    return [NSError errorWithDomain:text(error.domain)
                               code:error.code
                           userInfo:@{
                               NSLocalizedDescriptionKey : text(error.localizedDescription),
                               NSLocalizedRecoverySuggestionErrorKey : text(error.localizedRecoverySuggestion)
                           }];
}

@implementation NSAlert {
    NSWindow* _window;
    haloric::AlertModel _model;
    NSError* _error;
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
    NSAlert* made = [[self alloc] init];
    made->_error = e;
    return made;
}
- (void)setMessageText:(NSString*)t
{
    _model.messageText = [t _utf8];
}
- (NSString*)messageText
{
    return text(_model.messageText);
}
- (void)setInformativeText:(NSString*)t
{
    _model.informativeText = [t _utf8];
}
- (void)setAlertStyle:(NSAlertStyle)s
{
    _model.style = static_cast<haloric::AlertStyle>(s);
}
- (void)setIcon:(NSImage*)i
{
}
- (NSButton*)addButtonWithTitle:(NSString*)t
{
    _model.buttons.push_back([t _utf8]);
    return [NSButton buttonWithTitle:t target:nil action:nil];
}
// NSAlert runModal shows the alert's window, and orders it out when a button was pressed.
- (NSModalResponse)runModal
{
    const substitute::Backing* backing = substitute::backing();
    if (backing && _error) {
        backing->adapters.alerts.runModalError({[_error.domain _utf8],
                                                _error.code,
                                                [_error.localizedDescription _utf8],
                                                [_error.localizedRecoverySuggestion _utf8]});
        return NSAlertFirstButtonReturn;
    }
    if (backing)
        return backing->adapters.alerts.runModal(_model);
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
@implementation NSOpenPanel {
    haloric::OpenPanel _model;
    NSURL* _chosen;
}
+ (NSOpenPanel*)openPanel
{
    return [[self alloc] init];
}
- (void)setAllowedContentTypes:(NSArray*)t
{
}
- (void)setDirectoryURL:(NSURL*)u
{
    _model.directory = [u.path _utf8];
}
- (void)setPrompt:(NSString*)p
{
    _model.prompt = [p _utf8];
}
- (NSModalResponse)runModal
{
    const substitute::Backing* backing = substitute::backing();
    const auto path = backing ? backing->adapters.panels.runModalOpenPanel(_model) : std::nullopt;
    _chosen = path ? [NSURL fileURLWithPath:text(*path)] : nil;
    return path ? NSModalResponseOK : NSModalResponseCancel;
}
- (NSURL*)URL
{
    return _chosen;
}
@end
@implementation UTType
@end
extern "C" UTType* const UTTypeApplicationBundle = [[UTType alloc] init];
