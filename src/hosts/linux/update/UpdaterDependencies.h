// What the updater uses besides the platform's interfaces: the download of the feed, a display of the progress, and
// alerts that do not block. Main thread.
#pragma once

#include "foundation/Subscription.h"
#include "foundation/Task.h"
#include "platform/Alerts.h"

#include <cstddef>
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

class ModelessAlerts {
public:
    using Answer = std::function<void(std::size_t button)>; // the index of a button of the alert

    virtual ~ModelessAlerts() = default;

    // Shows an alert in front, beside the program's other windows, which stay usable, until the handle is gone. Calls
    // `answer` once, on a later turn of the loop, with the last button for an alert that was closed; the alert is
    // hidden by then, and the handle may be released inside the call.
    [[nodiscard]] virtual Subscription show(const AlertModel& alert, Answer answer) = 0;
};

} // namespace haloric
