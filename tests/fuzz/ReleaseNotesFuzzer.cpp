// Release notes with any bytes: the plain text is short and has no control characters but newlines.
#include "fuzz/Fuzzing.h"
#include "hosts/linux/update/ReleaseNotes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace haloric;
    constexpr std::size_t kMostBytes = 3 * 1500 + 4; // of UTF-8, with the mark of a truncated text
    const std::string text = ReleaseNotes::plainText(fuzzText(data, size));
    fuzzRequire(text.size() <= kMostBytes, "the text is short");
    fuzzRequire(
        std::ranges::none_of(text, [](unsigned char each) { return (each < ' ' && each != '\n') || each == 0x7F; }),
        "the text has no control characters");
    fuzzRequire(text.find("\n\n\n") == std::string::npos, "empty lines do not follow each other");
    return 0;
}
