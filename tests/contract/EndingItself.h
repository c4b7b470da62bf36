// A callback that ends its own registration while it runs. What it has captured must exist until it returns, whatever
// the end releases.
#pragma once

#include "foundation/Task.h"

#include <memory>

namespace haloric {

struct EndingItself {
    Task end; // of the registration
    int calls = 0;
    bool keepsCaptures = true; // until it returned, in every call

    // The registration's callback. This object outlives it.
    Task callback()
    {
        return [this, captured = std::make_shared<int>(0)] {
            // From here on, only local variables: the end may destroy this closure.
            EndingItself& self = *this;
            const std::weak_ptr<int> watched = captured;
            ++self.calls;
            self.end();
            self.keepsCaptures = self.keepsCaptures && !watched.expired();
        };
    }
};

} // namespace haloric
