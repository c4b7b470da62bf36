// A view that shows a content view of the portable program.
#pragma once

#include "platform/ContentView.h"

#import <AppKit/AppKit.h>

@interface MacContentView : NSView

- (instancetype)initWithContent:(haloric::ContentView*)content;

// Stops drawing: AppKit may keep a view longer than the program keeps its content.
- (void)forgetContent;

@end
