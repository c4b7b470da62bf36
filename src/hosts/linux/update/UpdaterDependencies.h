// What the updater uses besides the platform's interfaces: the download of the feed, and a display of the progress.
// Main thread; neither blocks.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Task.h"

#include <functional>
#include <string>

namespace haloric {

struct AppcastDownload {
    std::string bytes; // empty on error
    std::string error; // one sentence for the user; empty on success
};

class AppcastSource {
public:
    virtual ~AppcastSource() = default;

    // Downloads the feed at `address`. Calls `done` once, on a later turn of the loop; never after the handle is gone.
    virtual Subscription fetch(const std::string& address, std::function<void(const AppcastDownload&)> done) = 0;
};

class UpdateProgress {
public:
    virtual ~UpdateProgress() = default;

    // Shows that a check for updates runs, until the handle is gone. `onCancel` is called when the user cancels the
    // check; the display is hidden by then, and the handle may be released inside the call.
    [[nodiscard]] virtual Subscription show(Task onCancel) = 0;
};

} // namespace haloric
