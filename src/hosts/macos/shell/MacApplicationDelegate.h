// The application's delegate as AppKit knows it: passes each event on.
#pragma once

#include "platform/Application.h"

#import <AppKit/AppKit.h>

@interface MacApplicationDelegate : NSObject <NSApplicationDelegate>

// Events go here while it is not null.
@property(nonatomic, assign) haloric::ApplicationDelegate* receiver;

@end
