// Information dictionaries with any bytes: every key with a text is a key.
#include "fuzz/Fuzzing.h"
#include "hosts/linux/files/LinuxBundle.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace haloric;
    const InfoPlist info = InfoPlist::parse(fuzzText(data, size));
    for (const std::string_view key : {"CFBundleIdentifier", "SUFeedURL", "k", ""})
        fuzzRequire(info.contains(key) || !info.string(key), "a key with a text is a key");
    return 0;
}
