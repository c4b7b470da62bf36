// Observers of a notification center as subscriptions. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Task.h"

#import <Foundation/Foundation.h>

namespace haloric {

// `handler` runs on the main operation queue after each notification of that name, until the subscription goes.
Subscription observeNotification(NSNotificationCenter* center, NSNotificationName name, Task handler);

} // namespace haloric
