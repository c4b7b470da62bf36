#include "hosts/macos/base/MacNotifications.h"

#include "hosts/macos/base/OwnPool.h"

#include <utility>

namespace haloric {

Subscription observeNotification(NSNotificationCenter* center, NSNotificationName name, Task handler)
{
    const auto deliver = ^(NSNotification*) {
      const Task running = handler; // it may end its own subscription, and this block with it
      withOwnPool(running);
    };
    const id token = [center addObserverForName:name object:nil queue:NSOperationQueue.mainQueue usingBlock:deliver];
    return Subscription([center, token] { [center removeObserver:token]; });
}

} // namespace haloric
