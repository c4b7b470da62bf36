// Gets a feed from its server. Main thread; does not block.
#pragma once

#include "foundation/Subscription.h"

#include <functional>
#include <string>

namespace haloric {

struct AppcastDownload {
    std::string bytes;
    std::string error; // one sentence for the user; when it is set, there are no bytes
};

class AppcastSource {
public:
    virtual ~AppcastSource() = default;

    // Calls `done` once, on a later turn of the loop; never after the handle is gone.
    virtual Subscription fetch(const std::string& address, std::function<void(const AppcastDownload&)> done) = 0;
};

} // namespace haloric
