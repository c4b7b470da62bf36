#include "hosts/macos/base/MacProcesses.h"

#include "hosts/macos/base/MacConversions.h"

namespace haloric {

bool MacProcesses::launch(const std::string& executable, const std::vector<std::string>& arguments)
{
    NSTask* task = [[NSTask alloc] init];
    task.executableURL = [NSURL fileURLWithPath:nsStringFrom(executable)];
    NSMutableArray<NSString*>* texts = [NSMutableArray array];
    for (const std::string& argument : arguments)
        [texts addObject:nsStringFrom(argument)];
    task.arguments = texts;
    task.standardInput = NSFileHandle.fileHandleWithNullDevice;
    return [task launchAndReturnError:nil];
}

std::optional<std::string> MacProcesses::environmentVariable(const char* name) const
{
    NSString* value = NSProcessInfo.processInfo.environment[nsStringFrom(name)];
    return value ? std::optional(stringFrom(value)) : std::nullopt;
}

} // namespace haloric
