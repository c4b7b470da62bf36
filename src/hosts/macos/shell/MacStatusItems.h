// Items of the menu bar's status area.
#pragma once

#include "platform/StatusItems.h"

namespace haloric {

class MacStatusItems final : public StatusItems {
public:
    std::unique_ptr<StatusItem> make(double length) override;
};

} // namespace haloric
