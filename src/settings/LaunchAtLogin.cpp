#include "settings/LaunchAtLogin.h"

#include "platform/Bundle.h"
#include "platform/LoginItemService.h"

#include <filesystem>

namespace haloric {

LaunchAtLogin::LaunchAtLogin(const Bundle& bundle, LoginItemService& service) : m_bundle(bundle), m_service(service) {}

bool LaunchAtLogin::isAvailable() const { return std::filesystem::path(m_bundle.path()).extension() == ".app"; }

bool LaunchAtLogin::isEnabled() const { return isAvailable() && m_service.status() == LoginItemStatus::enabled; }

bool LaunchAtLogin::awaitsApproval() const
{
    return isAvailable() && m_service.status() == LoginItemStatus::requiresApproval;
}

std::optional<PlatformError> LaunchAtLogin::set(bool enabled)
{
    if (!isAvailable())
        return std::nullopt;
    return enabled ? m_service.registerApplication() : m_service.unregisterApplication();
}

} // namespace haloric
