// A slider that the arrow keys and assistive technology move by one step at a time. AppKit's own moves by a part of
// the range, which an owner who rounds to steps might round away.
#pragma once

#import <AppKit/AppKit.h>

@interface MacStepSlider : NSSlider

@property(nonatomic) double step;

@end
