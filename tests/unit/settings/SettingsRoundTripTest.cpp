// What is encoded and decoded again is the same record, every double bit for bit.
#include "settings/SettingsCodec.h"

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace haloric {
namespace {

std::vector<std::uint64_t> bitsOf(const Settings& s)
{
    std::vector<std::uint64_t> bits;
    for (const RGBA& color : {s.accent, s.borderColor.custom, s.glowColor.custom, s.tintColor.custom, s.dimColor})
        for (const double component : {color.r, color.g, color.b, color.a})
            bits.push_back(std::bit_cast<std::uint64_t>(component));
    for (const double number :
         {s.cornerRadius, s.borderWidth, s.glowRadius, s.glowOpacity, s.tintOpacity, s.tintHeight, s.dimOpacity})
        bits.push_back(std::bit_cast<std::uint64_t>(number));
    return bits;
}

std::optional<Settings> roundTrip(const Settings& settings)
{
    const auto bytes = SettingsCodec::encode(settings);
    return bytes ? SettingsCodec::decode(*bytes) : std::nullopt;
}

// Any bit pattern but those of infinities and of what is not a number, so that denormals and negative zero come up.
rc::Gen<double> finiteDouble()
{
    const auto anyBits = rc::gen::map(rc::gen::arbitrary<std::uint64_t>(),
                                      [](std::uint64_t bits) { return std::bit_cast<double>(bits); });
    return rc::gen::weightedOneOf<double>(
        {{4, rc::gen::suchThat(anyBits, [](double value) { return std::isfinite(value); })},
         {1, rc::gen::element(0.0, -0.0, 5e-324, -5e-324, 2.2250738585072009e-308, 0.1, 1.0 / 3, 1e22, 1e23,
                              std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest(),
                              std::numeric_limits<double>::min(), 9007199254740993.0)}});
}

// Text of any characters that UTF-8 can hold, the zero character and those beyond 16 bits among them.
rc::Gen<std::string> utf8Text()
{
    const auto character = rc::gen::suchThat(rc::gen::inRange<std::uint32_t>(0, 0x110000),
                                             [](std::uint32_t code) { return code < 0xD800 || code > 0xDFFF; });
    return rc::gen::map(rc::gen::container<std::vector<std::uint32_t>>(character), [](const auto& codes) {
        std::string text;
        const auto append = [&text](std::uint32_t byte) {
            text += static_cast<char>(static_cast<unsigned char>(byte));
        };
        for (const std::uint32_t code : codes) {
            if (code < 0x80) {
                append(code);
                continue;
            }
            if (code < 0x800) {
                append(0xC0 | (code >> 6));
            } else if (code < 0x10000) {
                append(0xE0 | (code >> 12));
                append(0x80 | ((code >> 6) & 0x3F));
            } else {
                append(0xF0 | (code >> 18));
                append(0x80 | ((code >> 12) & 0x3F));
                append(0x80 | ((code >> 6) & 0x3F));
            }
            append(0x80 | (code & 0x3F));
        }
        return text;
    });
}

RGBA anyColor() { return {*finiteDouble(), *finiteDouble(), *finiteDouble(), *finiteDouble()}; }
EffectColor anyEffect() { return {*rc::gen::arbitrary<bool>(), anyColor()}; }
bool anyBool() { return *rc::gen::arbitrary<bool>(); }

RC_GTEST_PROP(SettingsRoundTripTest, any_record_is_decoded_bit_for_bit, ())
{
    Settings settings;
    settings.accent = anyColor();
    settings.cornerRadius = *finiteDouble();
    settings.borderEnabled = anyBool();
    settings.borderColor = anyEffect();
    settings.borderWidth = *finiteDouble();
    settings.glowEnabled = anyBool();
    settings.glowColor = anyEffect();
    settings.glowRadius = *finiteDouble();
    settings.glowOpacity = *finiteDouble();
    settings.tintEnabled = anyBool();
    settings.tintColor = anyEffect();
    settings.tintOpacity = *finiteDouble();
    settings.tintHeight = *finiteDouble();
    settings.dimEnabled = anyBool();
    settings.dimColor = anyColor();
    settings.dimOpacity = *finiteDouble();
    settings.dimScope = *rc::gen::element(DimScope::allWindows, DimScope::selectedApps);
    settings.dimApps = *rc::gen::container<std::vector<std::string>>(utf8Text());
    settings.pulseEnabled = anyBool();
    settings.hideWhenFullScreen = anyBool();
    settings.hotkeyEnabled = anyBool();

    const auto decoded = roundTrip(settings);
    RC_ASSERT(decoded.has_value());
    RC_ASSERT(*decoded == settings);
    RC_ASSERT(bitsOf(*decoded) == bitsOf(settings));
}

TEST(SettingsRoundTripTest, the_edges_of_the_doubles_come_back_bit_for_bit)
{
    using Limits = std::numeric_limits<double>;
    for (const double edge :
         {0.0, -0.0, Limits::denorm_min(), -Limits::denorm_min(), Limits::min(), std::nextafter(Limits::min(), 0.0),
          Limits::max(), Limits::lowest(), Limits::epsilon(), 1.0 / 3, 0.1 + 0.2, 1e22, 9007199254740992.0}) {
        Settings settings;
        settings.dimOpacity = edge;
        const auto decoded = roundTrip(settings);
        ASSERT_TRUE(decoded.has_value()) << edge;
        EXPECT_EQ(bitsOf(*decoded), bitsOf(settings)) << edge;
    }
}

} // namespace
} // namespace haloric
