// Alerts and open panels.
#include "controls/Menus.h"
#include "loop/MainLoop.h"
#include "windows/Windows.h"

#import <UniformTypeIdentifiers/UniformTypeIdentifiers.h>

using substitute::raise;

@implementation NSAlert
+ (NSAlert*)alertWithError:(NSError*)e
{
    return [[self alloc] init];
}
- (void)setMessageText:(NSString*)t
{
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
- (NSModalResponse)runModal
{
    return NSAlertFirstButtonReturn;
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
