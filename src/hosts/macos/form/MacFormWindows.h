// Ordinary NSWindows that show a form.
#pragma once

#include "platform/FormWindows.h"

namespace haloric {

class MacFormWindows final : public FormWindows {
public:
    std::unique_ptr<FormWindow> make(const FormWindowConfiguration& configuration, const FormModel& form) override;
};

} // namespace haloric
