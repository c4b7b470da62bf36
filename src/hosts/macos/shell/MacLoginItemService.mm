#include "hosts/macos/shell/MacLoginItemService.h"

#include "hosts/macos/base/MacConversions.h"

#import <ServiceManagement/ServiceManagement.h>

namespace haloric {

// The numbers of platform/LoginItemService.h are those of macOS.
static_assert(SMAppServiceStatusNotRegistered == static_cast<NSInteger>(LoginItemStatus::notRegistered));
static_assert(SMAppServiceStatusEnabled == static_cast<NSInteger>(LoginItemStatus::enabled));
static_assert(SMAppServiceStatusRequiresApproval == static_cast<NSInteger>(LoginItemStatus::requiresApproval));
static_assert(SMAppServiceStatusNotFound == static_cast<NSInteger>(LoginItemStatus::notFound));

LoginItemStatus MacLoginItemService::status() const
{
    return static_cast<LoginItemStatus>(SMAppService.mainAppService.status);
}

std::optional<PlatformError> MacLoginItemService::registerApplication()
{
    NSError* error = nil;
    if ([SMAppService.mainAppService registerAndReturnError:&error])
        return std::nullopt;
    return platformErrorFrom(error);
}

std::optional<PlatformError> MacLoginItemService::unregisterApplication()
{
    NSError* error = nil;
    if ([SMAppService.mainAppService unregisterAndReturnError:&error])
        return std::nullopt;
    return platformErrorFrom(error);
}

} // namespace haloric
