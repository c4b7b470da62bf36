// A window server that knows one window and, unlike the usual fake, notes nothing: notes allocate.
#pragma once

#include "platform/WindowServerCalls.h"

namespace haloric {

class SilentWindowServerCalls final : public WindowServerCalls {
public:
    Rect bounds{100, 100, 400, 300};

    Subscription load(NotificationHandler) override { return {}; }
    bool has(Entry entry) const override { return entry == Entry::mainConnection || entry == Entry::getBounds; }
    ConnectionID mainConnection() override { return 1; }
    std::optional<Rect> getBounds(ConnectionID, WindowNumber) override { return bounds; }
    bool registerProc(WindowServerEvent) override { return false; }
    bool removeProc(WindowServerEvent) override { return false; }
    bool request(ConnectionID, WindowNumber) override { return false; }
    std::unique_ptr<WindowServerTransaction> create(ConnectionID) override { return nullptr; }
};

} // namespace haloric
