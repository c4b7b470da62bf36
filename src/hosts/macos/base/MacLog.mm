#include "hosts/macos/base/MacLog.h"

#include "hosts/macos/base/MacConversions.h"

namespace haloric {

void MacLog::line(std::string_view text) { NSLog(@"%@", nsStringFrom(text)); }

} // namespace haloric
