// Modal alerts, described as data. Main thread.
#pragma once

#include "platform/PlatformError.h"

#include <cstdint>
#include <string>
#include <vector>

namespace haloric {

enum class AlertStyle : std::uint64_t { warning = 0, informational = 1, critical = 2 };
enum class AlertIcon { application };

struct AlertModel {
    std::string messageText;
    std::string informativeText;
    AlertStyle style = AlertStyle::warning;
    AlertIcon icon = AlertIcon::application;
    std::vector<std::string> buttons; // the first is the default one
};

class Alerts {
public:
    // Returned for the first button; each further button adds one.
    static constexpr std::int64_t kFirstButton = 1000;

    virtual ~Alerts() = default;

    // Shows the alert and blocks until a button is chosen; the main loop runs in its modal mode.
    virtual std::int64_t runModal(const AlertModel& alert) = 0;

    // The system's standard alert for an error; blocks likewise.
    virtual void runModalError(const PlatformError& error) = 0;
};

} // namespace haloric
