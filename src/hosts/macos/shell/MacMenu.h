// An AppKit menu that shows a menu model: made once from its items, and brought up to date from them. Main thread.
#pragma once

#include "platform/MenuDelegate.h"
#include "platform/MenuModel.h"

#import <AppKit/AppKit.h>

@interface MacMenu : NSObject <NSMenuDelegate>

// Both outlive this object, or are forgotten first.
- (instancetype)initWithModel:(const haloric::MenuModel*)model delegate:(haloric::MenuDelegate*)delegate;

@property(nonatomic, readonly) NSMenu* menu;

// Takes over what the model's items show now.
- (void)showModel;

// Stops calls to the delegate and of actions: AppKit may keep the menu.
- (void)forgetModel;

@end
