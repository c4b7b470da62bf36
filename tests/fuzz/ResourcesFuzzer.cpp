// Resource manager strings with any bytes: the scale is a quarter step from 1 to 4.
#include "fuzz/Fuzzing.h"
#include "hosts/x11/server/X11Scale.h"

#include <cmath>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace haloric;
    const double scale = X11Scale::fromResources(fuzzText(data, size));
    fuzzRequire(scale >= 1 && scale <= 4 && std::floor(scale * 4) == scale * 4, "the scale is a quarter from 1 to 4");
    return 0;
}
