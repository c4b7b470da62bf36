// An autorelease pool around each call from a macOS loop or queue into the program.
#pragma once

namespace haloric {

// Calls `call` and then releases what it left to an autorelease pool. The queues drain their pools at no fixed time,
// and the application's loop drains its own only after an event, which may take hours in the background.
template <class Call>
void withOwnPool(const Call& call)
{
    @autoreleasepool {
        call();
    }
}

} // namespace haloric
