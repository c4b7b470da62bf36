// Stored settings with any bytes: what decodes has a stored form, which decodes to the same record.
#include "fuzz/Fuzzing.h"
#include "settings/SettingsCodec.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace haloric;
    const auto decoded = SettingsCodec::decode(fuzzText(data, size));
    if (!decoded)
        return 0;
    const auto encoded = SettingsCodec::encode(*decoded);
    fuzzRequire(encoded.has_value(), "what decodes can be encoded");
    const auto again = SettingsCodec::decode(*encoded);
    fuzzRequire(again == decoded, "decoding what was encoded gives the same record");
    return 0;
}
