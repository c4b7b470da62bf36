#include "hosts/macos/MacLog.h"

#include "hosts/macos/MacConversions.h"

namespace haloric {

void MacLog::line(std::string_view text) { NSLog(@"%@", nsStringFrom(text)); }

} // namespace haloric
