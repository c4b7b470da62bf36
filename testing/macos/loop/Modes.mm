#include "loop/Modes.h"

#include "foundation/Foundation.h"

#import <AppKit/AppKit.h>

NSRunLoopMode const NSDefaultRunLoopMode = @"kCFRunLoopDefaultMode";
NSRunLoopMode const NSRunLoopCommonModes = @"kCFRunLoopCommonModes";
NSRunLoopMode const NSEventTrackingRunLoopMode = @"NSEventTrackingRunLoopMode";
NSRunLoopMode const NSModalPanelRunLoopMode = @"NSModalPanelRunLoopMode";
extern "C" {
const CFRunLoopMode kCFRunLoopCommonModes = (CFRunLoopMode) @"kCFRunLoopCommonModes";
const CFRunLoopMode kCFRunLoopDefaultMode = (CFRunLoopMode) @"kCFRunLoopDefaultMode";
}

namespace substitute {

bool isCommonMode(NSString* mode)
{
    return [mode isEqualToString:NSDefaultRunLoopMode] || [mode isEqualToString:NSEventTrackingRunLoopMode] ||
           [mode isEqualToString:NSModalPanelRunLoopMode];
}

void Modes::add(NSString* mode)
{
    if (!mode)
        raise("a run loop mode is nil");
    m_names.insert([mode _utf8]);
}

void Modes::remove(NSString* mode) { m_names.erase([mode _utf8]); }

bool Modes::contains(NSString* mode) const
{
    return m_names.contains([mode _utf8]) || (isCommonMode(mode) && m_names.contains([NSRunLoopCommonModes _utf8]));
}

} // namespace substitute
