// Calls from the system's loops and queues into the program.
#pragma once

namespace haloric {

// Calls `call`, and releases afterwards what it left to an autorelease pool. The queues drain theirs at no certain
// time, and the application's loop only with an event of its own, which may take hours to come in the background.
template <class Call>
void withOwnPool(const Call& call)
{
    @autoreleasepool {
        call();
    }
}

} // namespace haloric
