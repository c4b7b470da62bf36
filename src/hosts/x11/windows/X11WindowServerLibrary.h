// The window server's private library, built in: the same eight entries by the same names, whatever path is asked
// for. They are plain functions without a context, so one library exists at a time.
//
// Entries are called on the main thread, and so are `open` and `release`. Opened libraries may outlive this object;
// their entries then fail.
#pragma once

#include "hosts/x11/windows/X11WindowServer.h"
#include "platform/WindowServerLibrary.h"

namespace haloric {

class X11WindowServerLibrary final : public WindowServerLibrary {
public:
    X11WindowServerLibrary(X11Connection& connection, const char* display, const X11Clients& clients,
                           const X11Scale& scale);
    ~X11WindowServerLibrary() override;
    X11WindowServerLibrary(const X11WindowServerLibrary&) = delete;
    X11WindowServerLibrary& operator=(const X11WindowServerLibrary&) = delete;

    std::unique_ptr<OpenedLibrary> open(const char* path, int mode) override;
    void release(void* transaction) override;

private:
    X11WindowServer m_server;
};

} // namespace haloric
