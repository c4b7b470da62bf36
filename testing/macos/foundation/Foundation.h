// What the stand-ins share of Foundation: texts, and how a misuse is reported.
// Any thread.
#pragma once

#import <Foundation/Foundation.h>

#include <cstdarg>
#include <map>
#include <string>

@interface NSObject (Substitute)
- (CFTypeID)_cfTypeID;
@end

@interface NSString (Substitute)
- (std::string)_utf8;
@end

@interface NSNumber (Substitute)
- (BOOL)_isFloat;
@end

namespace substitute {

std::map<void*, NSActivityOptions>& activities(); // those begun and not ended

NSString* text(const std::string& utf8);

// As +[NSString stringWithFormat:]; a conversion that is not implemented ends
// the program.
std::string formatted(NSString* format, std::va_list arguments);

// Ends the program, as an exception that is not caught does.
[[noreturn]] void raise(const char* format, ...) __attribute__((format(printf, 1, 2)));

} // namespace substitute
