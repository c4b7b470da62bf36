// Makes the windows that show forms. Main thread.
#pragma once

#include "hosts/x11/server/X11Connection.h"
#include "platform/FormWindows.h"

namespace haloric {

class QtFormWindows final : public FormWindows {
public:
    // Qt must have been set up. The connection outlives it.
    explicit QtFormWindows(X11Connection& connection) : m_connection(connection) {}

    std::unique_ptr<FormWindow> make(const FormWindowConfiguration& configuration, const FormModel& form) override;

private:
    X11Connection& m_connection;
};

} // namespace haloric
