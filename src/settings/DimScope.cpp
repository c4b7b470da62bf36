#include "settings/DimScope.h"

namespace haloric {

std::string_view rawValue(DimScope scope)
{
    switch (scope) {
    case DimScope::allWindows:
        return "allWindows";
    case DimScope::selectedApps:
        return "selectedApps";
    }
    return {};
}

std::optional<DimScope> dimScopeFromRawValue(std::string_view raw)
{
    for (const DimScope scope : kAllDimScopes)
        if (rawValue(scope) == raw)
            return scope;
    return std::nullopt;
}

} // namespace haloric
