// Records with any values: each either has no stored form, because of a number that is not finite or a text that is not
// UTF-8, or decodes to itself.
#include "fuzz/Fuzzing.h"
#include "settings/SettingsCodec.h"

#include <cmath>

namespace {

using namespace haloric;

struct Filler {
    FuzzInput& input;
    bool isFinite = true;

    void fill(bool& field) { field = input.flag(); }
    void fill(double& field)
    {
        field = input.number<double>();
        isFinite = isFinite && std::isfinite(field);
    }
    void fill(RGBA& field)
    {
        for (double* part : {&field.r, &field.g, &field.b, &field.a})
            fill(*part);
    }
    void fill(EffectColor& field)
    {
        fill(field.useAccent);
        fill(field.custom);
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    Filler filler{input};
    Settings record;
    for (bool* field : {&record.borderEnabled, &record.glowEnabled, &record.tintEnabled, &record.dimEnabled,
                        &record.pulseEnabled, &record.hideWhenFullScreen, &record.hotkeyEnabled})
        filler.fill(*field);
    record.dimScope = kAllDimScopes[input.below(kAllDimScopes.size())];
    for (std::size_t count = input.below(8); count > 0; --count)
        record.dimApps.emplace_back(input.text());
    for (double* field : {&record.cornerRadius, &record.borderWidth, &record.glowRadius, &record.glowOpacity,
                          &record.tintOpacity, &record.tintHeight, &record.dimOpacity})
        filler.fill(*field);
    for (EffectColor* field : {&record.borderColor, &record.glowColor, &record.tintColor})
        filler.fill(*field);
    filler.fill(record.accent);
    filler.fill(record.dimColor);

    const auto encoded = SettingsCodec::encode(record);
    fuzzRequire(filler.isFinite || !encoded, "numbers that are not finite have no stored form");
    if (encoded)
        fuzzRequire(SettingsCodec::decode(*encoded) == record, "decoding what was encoded gives the same record");
    else
        fuzzRequire(!filler.isFinite || !record.dimApps.empty(), "finite numbers have a stored form");
    return 0;
}
