// An object that reports its end, for tests of lifetimes.
#pragma once

#import <Foundation/Foundation.h>

@interface Probe : NSObject
+ (instancetype)countingIn:(int*)ended; // is raised by dealloc; may be null
- (int)number;
- (void)setNumber:(int)number;
- (void)tick:(id)sender; // raises `number`
@end
