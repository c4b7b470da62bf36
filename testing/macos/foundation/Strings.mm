// Texts: NSString, and the constants that the compiler emits.
#include "foundation/Foundation.h"
#include "runtime/ObjectiveCAbi.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>

#include <strings.h>

using substitute::raise;
using substitute::text;

@interface RTString : NSString {
@public
    std::string _text;
}
@end

namespace substitute {
NSString* text(const std::string& utf8)
{
    RTString* made = [[RTString alloc] init];
    made->_text = utf8;
    return made;
}
void raise(const char* format, ...)
{
    char words[1000];
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(words, sizeof words, format, arguments);
    va_end(arguments);
    rt_fatal("*** Terminating app due to uncaught exception: %s", words);
}
}

static std::u16string utf16Of(const std::string& utf8)
{
    std::u16string out;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto c = static_cast<unsigned char>(utf8[i]);
        const int more = c < 0x80 ? 0 : c < 0xe0 ? 1 : c < 0xf0 ? 2 : 3;
        char32_t code = more == 0 ? c : c & (0x3f >> more);
        for (int k = 1; k <= more && i + k < utf8.size(); ++k)
            code = code << 6 | (utf8[i + k] & 0x3f);
        i += more + 1;
        if (code < 0x10000) {
            out += static_cast<char16_t>(code);
            continue;
        }
        code -= 0x10000;
        out += static_cast<char16_t>(0xd800 | code >> 10);
        out += static_cast<char16_t>(0xdc00 | (code & 0x3ff));
    }
    return out;
}
static std::string narrow(const char16_t* s, std::size_t n)
{
    std::string out;
    for (std::size_t i = 0; i < n; ++i) {
        char32_t c = s[i];
        if (c >= 0xd800 && c < 0xdc00 && i + 1 < n)
            c = 0x10000 + ((c & 0x3ff) << 10) + (s[++i] & 0x3ff);
        if (c < 0x80)
            out += static_cast<char>(c);
        else if (c < 0x800) {
            out += static_cast<char>(0xc0 | c >> 6);
            out += static_cast<char>(0x80 | (c & 0x3f));
        } else if (c < 0x10000) {
            out += static_cast<char>(0xe0 | c >> 12);
            out += static_cast<char>(0x80 | (c >> 6 & 0x3f));
            out += static_cast<char>(0x80 | (c & 0x3f));
        } else {
            out += static_cast<char>(0xf0 | c >> 18);
            out += static_cast<char>(0x80 | (c >> 12 & 0x3f));
            out += static_cast<char>(0x80 | (c >> 6 & 0x3f));
            out += static_cast<char>(0x80 | (c & 0x3f));
        }
    }
    return out;
}
static bool isUTF8(const std::string& s)
{
    for (std::size_t i = 0; i < s.size();) {
        const auto c = static_cast<unsigned char>(s[i]);
        const int more = c < 0x80                ? 0
                         : c >= 0xc2 && c < 0xe0 ? 1
                         : c >= 0xe0 && c < 0xf0 ? 2
                         : c >= 0xf0 && c < 0xf5 ? 3
                                                 : -1;
        if (more < 0 || i + more >= s.size())
            return false;
        for (int k = 1; k <= more; ++k)
            if ((s[i + k] & 0xc0) != 0x80)
                return false;
        i += more + 1;
    }
    return true;
}

namespace {

// One conversion, without %@, as C has it.
std::string converted(const std::string& conversion, std::va_list& arguments)
{
    const auto print = [&](auto value) {
        char words[400];
        std::snprintf(words, sizeof words, conversion.c_str(), value);
        return std::string(words);
    };
    switch (conversion.back()) {
    case 'd':
    case 'u':
    case 'x':
        return conversion.find('l') == std::string::npos ? print(va_arg(arguments, int))
                                                         : print(va_arg(arguments, long));
    case 'f':
    case 'g':
        return print(va_arg(arguments, double));
    case 's':
        return va_arg(arguments, const char*);
    default:
        raise("the format \"%s\" is not implemented", conversion.c_str());
    }
}

} // namespace

namespace substitute {

std::string formatted(NSString* format, std::va_list arguments)
{
    std::va_list rest;
    va_copy(rest, arguments);
    const std::string all = [format _utf8];
    std::string made;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i] != '%') {
            made += all[i];
            continue;
        }
        const std::size_t start = i++;
        while (i < all.size() && std::strchr("0123456789.-+# l", all[i]))
            ++i;
        if (i == all.size())
            raise("the format \"%s\" ends inside a conversion", all.c_str());
        if (all[i] == '%') {
            made += '%';
        } else if (all[i] == '@') {
            id one = va_arg(rest, id);
            made += one ? [[one description] _utf8] : "(null)";
        } else {
            made += converted(all.substr(start, i - start + 1), rest);
        }
    }
    va_end(rest);
    return made;
}

} // namespace substitute

@implementation NSString
+ (instancetype)string
{
    return text("");
}
+ (instancetype)stringWithUTF8String:(const char*)bytes
{
    return bytes ? text(bytes) : nil;
}
+ (instancetype)stringWithString:(NSString*)other
{
    return text([other _utf8]);
}
+ (instancetype)stringWithFormat:(NSString*)format, ...
{
    std::va_list arguments;
    va_start(arguments, format);
    const std::string made = substitute::formatted(format, arguments);
    va_end(arguments);
    return text(made);
}
- (id)copyWithZone:(NSZone*)zone
{
    return self;
}
- (std::string)_utf8
{
    raise("-_utf8 only defined for a concrete class");
}
- (const char*)UTF8String
{
    raise("-UTF8String only defined for a concrete class");
}
- (NSUInteger)length
{
    return utf16Of([self _utf8]).size();
}
- (unichar)characterAtIndex:(NSUInteger)index
{
    const auto all = utf16Of([self _utf8]);
    if (index >= all.size())
        raise("NSRangeException: characterAtIndex: %lu beyond %zu", index, all.size());
    return all[index];
}
- (BOOL)isEqualToString:(NSString*)other
{
    return other && [self _utf8] == [other _utf8];
}
- (BOOL)isEqual:(id)other
{
    return self == other || ([other isKindOfClass:NSString.class] && [self isEqualToString:other]);
}
- (NSUInteger)hash
{
    return std::hash<std::string>()([self _utf8]);
}
- (NSString*)description
{
    return self;
}
- (NSString*)lowercaseString
{
    std::string t = [self _utf8];
    for (char& c : t)
        if (c >= 'A' && c <= 'Z')
            c += 32;
    return text(t);
}
- (NSComparisonResult)localizedCaseInsensitiveCompare:(NSString*)other
{
    const int order = strcasecmp([self _utf8].c_str(), [other _utf8].c_str());
    return order < 0 ? NSOrderedAscending : order > 0 ? NSOrderedDescending : NSOrderedSame;
}
- (BOOL)hasPrefix:(NSString*)start
{
    return [self _utf8].starts_with([start _utf8]);
}
- (NSString*)stringByAppendingPathComponent:(NSString*)part
{
    std::string t = [self _utf8];
    if (!t.empty() && t.back() != '/')
        t += '/';
    return text(t + [part _utf8]);
}
- (NSData*)dataUsingEncoding:(NSStringEncoding)encoding
{
    const auto t = [self _utf8];
    return [NSData dataWithBytes:t.data() length:t.size()];
}
- (CFTypeID)_cfTypeID
{
    return (CFTypeID)NSString.class;
}
@end

@implementation RTString
- (std::string)_utf8
{
    return _text;
}
- (const char*)UTF8String
{
    return _text.c_str();
}
@end

// What @"..." and CFSTR are.
struct RawConstant {
    void* isa;
    int flags;
    const void* bytes;
    long length;
}; // as the compiler lays it out
@interface RTConstantString : NSString
@end
@implementation RTConstantString
static const RawConstant* raw(NSString* one) { return (__bridge const RawConstant*)one; }
- (std::string)_utf8
{
    const auto* r = raw(self);
    return r->flags & 0x10 ? narrow(static_cast<const char16_t*>(r->bytes), static_cast<std::size_t>(r->length))
                           : std::string(static_cast<const char*>(r->bytes), static_cast<std::size_t>(r->length));
}
- (const char*)UTF8String
{
    const auto* r = raw(self);
    if (!(r->flags & 0x10))
        return static_cast<const char*>(r->bytes);
    static auto* kept = new std::map<const void*, std::string>;
    return ((*kept)[r->bytes] = [self _utf8]).c_str();
}
@end
asm(".globl __CFConstantStringClassReference\n.set "
    "__CFConstantStringClassReference, OBJC_CLASS_$_RTConstantString");
