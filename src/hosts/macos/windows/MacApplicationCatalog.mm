#include "hosts/macos/windows/MacApplicationCatalog.h"

#include "hosts/macos/base/MacConversions.h"

namespace haloric {
namespace {

std::optional<std::string> textFrom(NSString* text) { return text ? std::optional(stringFrom(text)) : std::nullopt; }

} // namespace

std::vector<RunningApplication> MacApplicationCatalog::runningApplications() const
{
    std::vector<RunningApplication> applications;
    for (NSRunningApplication* application in NSWorkspace.sharedWorkspace.runningApplications) {
        const auto policy = static_cast<ActivationPolicy>(application.activationPolicy);
        applications.push_back({policy, textFrom(application.bundleIdentifier)});
    }
    return applications;
}

std::optional<std::string> MacApplicationCatalog::applicationPath(std::string_view bundleIdentifier) const
{
    NSString* identifier = nsStringFrom(bundleIdentifier);
    return textFrom([NSWorkspace.sharedWorkspace URLForApplicationWithBundleIdentifier:identifier].path);
}

std::optional<std::string> MacApplicationCatalog::bundleIdentifier(const std::string& applicationPath) const
{
    return textFrom([NSBundle bundleWithPath:nsStringFrom(applicationPath)].bundleIdentifier);
}

std::string MacApplicationCatalog::displayName(const std::string& path) const
{
    return stringFrom([NSFileManager.defaultManager displayNameAtPath:nsStringFrom(path)]);
}

int MacApplicationCatalog::compareLocalizedCaseInsensitive(const std::string& a, const std::string& b) const
{
    return static_cast<int>([nsStringFrom(a) localizedCaseInsensitiveCompare:nsStringFrom(b)]);
}

bool MacApplicationCatalog::hasSymbol(std::string_view name) const
{
    return [NSImage imageWithSystemSymbolName:nsStringFrom(name) accessibilityDescription:nil] != nil;
}

} // namespace haloric
