// The main bundle: its path, its identifier and its Info.plist.
#pragma once

#include "platform/Bundle.h"

namespace haloric {

class MacBundle final : public Bundle {
public:
    std::string path() const override;
    std::optional<std::string> identifier() const override;
    bool hasInfo(std::string_view key) const override;
    std::optional<std::string> infoString(std::string_view key) const override;
};

} // namespace haloric
