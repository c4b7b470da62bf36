// A section of a form: a title, its rows in a rounded group with lines between them, and a footer. Main thread.
#pragma once

#import <AppKit/AppKit.h>

@interface MacFormSectionView : NSStackView

// An empty title or footer takes no room.
- (void)showTitle:(NSString*)title rows:(NSArray<NSView*>*)rows footer:(NSString*)footer;

@end
