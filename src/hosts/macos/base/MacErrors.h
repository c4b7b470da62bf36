// The system's errors as the seam knows them, and back. Any thread.
#pragma once

#include "platform/PlatformError.h"

#import <Foundation/Foundation.h>

namespace haloric {

PlatformError platformErrorFrom(NSError* error);
NSError* nsErrorFrom(const PlatformError& error);

} // namespace haloric
