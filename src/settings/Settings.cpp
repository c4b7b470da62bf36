#include "settings/Settings.h"

namespace haloric {

const Settings& Settings::defaults()
{
    static const Settings record;
    return record;
}

} // namespace haloric
