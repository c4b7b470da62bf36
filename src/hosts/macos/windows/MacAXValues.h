// Values of Accessibility attributes as the seam knows them. Accessibility queue.
#pragma once

#include "hosts/macos/base/CFOwned.h"
#include "platform/Accessibility.h"

namespace haloric {

// By the value's type: elements, booleans, texts, points and sizes; AXOtherValue for every other, and std::monostate
// for null.
AXValue axValueFrom(CFOwned<CFTypeRef> value);

} // namespace haloric
