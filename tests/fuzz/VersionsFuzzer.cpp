// Three version texts: their comparison is a weak order.
#include "fuzz/Fuzzing.h"
#include "hosts/linux/update/UpdateOffer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace haloric;
    FuzzInput input(data, size);
    const std::string_view a = input.text();
    const std::string_view b = input.text();
    const std::string_view c = input.rest();
    const auto compare = &AppVersion::compare;
    fuzzRequire(std::is_eq(compare(a, a)), "a version equals itself");
    fuzzRequire(compare(a, b) == (0 <=> compare(b, a)), "the order does not depend on the side");
    if (std::is_lteq(compare(a, b)) && std::is_lteq(compare(b, c)))
        fuzzRequire(std::is_lteq(compare(a, c)), "the order is transitive");
    if (std::is_eq(compare(a, b)))
        fuzzRequire(compare(a, c) == compare(b, c), "equal versions compare alike");
    return 0;
}
