// Autostart entries with any bytes have a state; the entry for a program at any path is enabled.
#include "fuzz/Fuzzing.h"
#include "hosts/linux/files/LinuxLoginItemService.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace haloric;
    const std::string_view text = fuzzText(data, size);
    AutostartEntry::stateOf(text);
    const std::string entry = AutostartEntry::text("/" + std::string(text));
    fuzzRequire(AutostartEntry::stateOf(entry) == AutostartEntry::State::enabled, "an entry that was made is enabled");
    return 0;
}
