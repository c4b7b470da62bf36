// The records shared by the saving program and the test that kills it.
#pragma once

#include "settings/Settings.h"

#include <string>

namespace haloric {

// The n-th saved record: its number, and a list whose length depends on the number and spans several pages.
inline Settings numberedSettings(int n)
{
    Settings settings;
    settings.borderWidth = n;
    settings.dimApps.assign(static_cast<std::size_t>(200 + 37 * (n % 60)),
                            "org.example.application.number." + std::to_string(n));
    return settings;
}

} // namespace haloric
