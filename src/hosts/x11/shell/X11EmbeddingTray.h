// The system tray of the connection's screen: the owner of the selection _NET_SYSTEM_TRAY_Sn. Main thread.
#pragma once

#include "foundation/Publisher.h"
#include "hosts/linux/shell/TrayWatcher.h"
#include "hosts/x11/server/X11Connection.h"

namespace haloric {

class X11EmbeddingTray final : public EmbeddingTray {
public:
    // The connection outlives it.
    explicit X11EmbeddingTray(X11Connection& connection);

    bool exists() const override;
    Subscription onAppear(Task handler) override { return m_appeared.subscribe(std::move(handler)); }

private:
    X11Connection& m_connection;
    Publisher<> m_appeared;
    Subscription m_messages;
};

} // namespace haloric
