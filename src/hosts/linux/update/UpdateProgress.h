// Tells the user that a check for updates is under way. Main thread; does not block.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Task.h"

namespace haloric {

class UpdateProgress {
public:
    virtual ~UpdateProgress() = default;

    // Shows it until the handle is gone. `onCancel` is called when the user wants the check to end; by then nothing is
    // shown any more, and the handle may be dropped from within.
    [[nodiscard]] virtual Subscription show(Task onCancel) = 0;
};

} // namespace haloric
