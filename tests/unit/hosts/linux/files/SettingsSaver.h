// What the saving program and the test that kills it agree on.
#pragma once

#include "settings/Settings.h"

#include <string>

namespace haloric {

// The n-th record of the row that is saved: its number, and a list whose length changes with it and that is large
// enough to be written in several pages.
inline Settings numberedSettings(int n)
{
    Settings settings;
    settings.borderWidth = n;
    settings.dimApps.assign(static_cast<std::size_t>(200 + 37 * (n % 60)),
                            "org.example.application.number." + std::to_string(n));
    return settings;
}

} // namespace haloric
