// Update feeds with any bytes: an unreadable feed has no items, and an offer has a secure page and readable notes.
#include "fuzz/Fuzzing.h"
#include "hosts/linux/update/UpdateOffer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace haloric;
    const Appcast appcast = Appcast::parse(fuzzText(data, size));
    fuzzRequire(appcast.error.empty() || (appcast.items.empty() && appcast.page.empty()),
                "an unreadable feed has no content");
    const auto offer = UpdateOffer::find(appcast, "1.0");
    if (offer)
        fuzzRequire(offer->page.empty() || UpdateOffer::isSecurePage(offer->page), "the page of an offer is secure");
    return 0;
}
