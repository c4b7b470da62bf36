// Damaged records: whatever the bytes, decoding ends, and what it accepts is a record that can be saved.
#include "settings/SettingsCodec.h"

#include <array>
#include <random>
#include <string>

namespace haloric {
namespace {

class Mutator {
public:
    explicit Mutator(std::uint64_t seed) : m_random(seed) {}

    std::string mutated(std::string text)
    {
        for (std::size_t count = 1 + below(4); count > 0; --count)
            mutateOnce(text);
        return text;
    }

private:
    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_random); }

    void mutateOnce(std::string& text)
    {
        static constexpr std::array<const char*, 20> kPieces{"null",
                                                             "true",
                                                             "false",
                                                             "{",
                                                             "}",
                                                             "[",
                                                             "]",
                                                             "\"",
                                                             ":",
                                                             ",",
                                                             "1e400",
                                                             "-0.0",
                                                             "5e-324",
                                                             "\\u0000",
                                                             "\\ud800",
                                                             "\xff",
                                                             "\"allWindows\"",
                                                             "\"accent\":",
                                                             "{\"r\":1,\"g\":1,\"b\":1,\"a\":1}",
                                                             "-"};
        const std::size_t at = below(text.size() + 1);
        const std::size_t length = std::min(text.size() - at, below(12));
        switch (below(5)) {
        case 0:
            if (at < text.size())
                text[at] = static_cast<char>(below(256));
            break;
        case 1:
            text.erase(at, length);
            break;
        case 2:
            text.insert(at, kPieces[below(kPieces.size())]);
            break;
        case 3:
            text.replace(at, length, kPieces[below(kPieces.size())]);
            break;
        default:
            text.insert(below(text.size() + 1), text.substr(at, length));
            break;
        }
    }

    std::mt19937_64 m_random;
};

TEST(SettingsCodecMutationTest, damaged_records_are_refused_or_make_a_record_that_can_be_saved)
{
    constexpr std::uint64_t kSeed = 20240229;
    constexpr int kRounds = 20'000;
    Settings rich;
    rich.dimApps = {"org.example.editor", "org.example.ελ"};
    rich.dimScope = DimScope::selectedApps;
    rich.glowRadius = 1.0 / 3;
    const std::array<std::string, 3> originals{*SettingsCodec::encode(Settings::defaults()),
                                               *SettingsCodec::encode(rich), R"({"borderWidth":5,"dimApps":["a"]})"};
    Mutator mutator(kSeed);
    int accepted = 0;
    for (int round = 0; round < kRounds; ++round) {
        const std::string damaged = mutator.mutated(originals[static_cast<std::size_t>(round) % originals.size()]);
        const auto decoded = SettingsCodec::decode(damaged);
        if (!decoded)
            continue;
        ++accepted;
        const auto encoded = SettingsCodec::encode(*decoded);
        ASSERT_TRUE(encoded.has_value()) << "round " << round << ": " << damaged;
        ASSERT_EQ(SettingsCodec::decode(*encoded), decoded) << "round " << round << ": " << damaged;
    }
    EXPECT_GT(accepted, kRounds / 100) << "the damage is so great that nothing of the decoder is reached";
    EXPECT_LT(accepted, kRounds / 2) << "the damage is so small that hardly anything is refused";
}

} // namespace
} // namespace haloric
