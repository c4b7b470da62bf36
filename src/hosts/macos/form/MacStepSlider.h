// A slider that the arrow keys and assistive technology move by one step at a time. NSSlider moves by a part of the
// range, which rounding to steps could undo.
#pragma once

#import <AppKit/AppKit.h>

@interface MacStepSlider : NSSlider

@property(nonatomic) double step;

@end
