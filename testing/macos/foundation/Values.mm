// Numbers, data, dates, addresses, errors and identifiers.
#include "foundation/Balance.h"
#include "foundation/Foundation.h"
#include "loop/Clock.h"
#include "runtime/ObjectiveCAbi.h"

#include <cstdlib>
#include <ctime>
#include <string>

using substitute::raise;
using substitute::text;

@implementation NSValue
- (id)copyWithZone:(NSZone*)zone
{
    return self;
}
@end
@interface RTNumber : NSNumber {
@public
    double _real;
    long long _whole;
    char _kind; // 'b'oolean, 'i'nteger, 'd'ouble
}
@end
static RTNumber* number(char kind, double real, long long whole)
{
    RTNumber* made = [[RTNumber alloc] init];
    made->_kind = kind;
    made->_real = real;
    made->_whole = whole;
    return made;
}
@implementation NSNumber
+ (NSNumber*)numberWithBool:(BOOL)v
{
    static RTNumber* const yes = substitute::permanent([] { return number('b', 1, 1); });
    static RTNumber* const no = substitute::permanent([] { return number('b', 0, 0); });
    return v ? yes : no;
}
+ (NSNumber*)numberWithChar:(char)v
{
    return number('i', v, v);
}
+ (NSNumber*)numberWithInt:(int)v
{
    return number('i', v, v);
}
+ (NSNumber*)numberWithUnsignedInt:(unsigned)v
{
    return number('i', v, v);
}
+ (NSNumber*)numberWithInteger:(NSInteger)v
{
    return number('i', static_cast<double>(v), v);
}
+ (NSNumber*)numberWithLong:(long)v
{
    return number('i', static_cast<double>(v), v);
}
+ (NSNumber*)numberWithLongLong:(long long)v
{
    return number('i', static_cast<double>(v), v);
}
+ (NSNumber*)numberWithUnsignedInteger:(NSUInteger)v
{
    return number('i', static_cast<double>(v), static_cast<long long>(v));
}
+ (NSNumber*)numberWithDouble:(double)v
{
    return number('d', v, static_cast<long long>(v));
}
@end
@implementation RTNumber
- (BOOL)boolValue
{
    return _kind == 'd' ? _real != 0 : _whole != 0;
}
- (double)doubleValue
{
    return _real;
}
- (int)intValue
{
    return static_cast<int>(_whole);
}
- (unsigned)unsignedIntValue
{
    return static_cast<unsigned>(_whole);
}
- (NSInteger)integerValue
{
    return _whole;
}
- (long long)longLongValue
{
    return _whole;
}
- (BOOL)isEqual:(id)other
{
    return [other isKindOfClass:RTNumber.class] && ((RTNumber*)other)->_real == _real;
}
- (NSUInteger)hash
{
    return static_cast<NSUInteger>(_whole);
}
- (BOOL)_isFloat
{
    return _kind == 'd';
}
- (CFTypeID)_cfTypeID
{
    return _kind == 'b' ? 1 : (CFTypeID)NSNumber.class;
}
@end

@implementation NSData {
    std::string _bytes;
}
+ (instancetype)data
{
    return [[self alloc] init];
}
+ (instancetype)dataWithBytes:(const void*)bytes length:(NSUInteger)length
{
    NSData* made = [[self alloc] init];
    made->_bytes.assign(static_cast<const char*>(bytes), length);
    return made;
}
- (const void*)bytes
{
    return _bytes.data();
}
- (NSUInteger)length
{
    return _bytes.size();
}
- (id)copyWithZone:(NSZone*)zone
{
    return self;
}
- (BOOL)isEqual:(id)other
{
    return [other isKindOfClass:NSData.class] && ((NSData*)other)->_bytes == _bytes;
}
@end

@implementation NSDate {
    double _since1970;
}
static NSDate* date(double since1970)
{
    NSDate* made = [[NSDate alloc] init];
    made->_since1970 = since1970;
    return made;
}
static double wall() { return substitute::clock().secondsSince1970(); }
+ (instancetype)date
{
    return date(wall());
}
+ (instancetype)dateWithTimeIntervalSinceNow:(NSTimeInterval)delta
{
    return date(wall() + delta);
}
+ (instancetype)dateWithTimeIntervalSince1970:(NSTimeInterval)at
{
    return date(at);
}
+ (NSDate*)distantFuture
{
    return date(64092211200.0);
}
+ (NSDate*)distantPast
{
    return date(-62135769600.0);
}
- (NSTimeInterval)timeIntervalSince1970
{
    return _since1970;
}
- (NSTimeInterval)timeIntervalSinceNow
{
    return _since1970 - wall();
}
@end

@implementation NSURL {
    std::string _text;
    bool _file;
}
+ (NSURL*)URLWithString:(NSString*)string
{
    if (!string)
        raise("NSInvalidArgumentException: -[NSURL initWithString:relativeToURL:]: "
              "nil string parameter");
    NSURL* made = [[NSURL alloc] init];
    made->_text = [string _utf8];
    if (made->_text.find(' ') != std::string::npos)
        return nil;
    return made;
}
+ (NSURL*)fileURLWithPath:(NSString*)path
{
    return [self fileURLWithPath:path isDirectory:NO];
}
+ (NSURL*)fileURLWithPath:(NSString*)path isDirectory:(BOOL)folder
{
    if (!path)
        raise("NSInvalidArgumentException: -[NSURL initFileURLWithPath:]: nil "
              "string parameter");
    NSURL* made = [[NSURL alloc] init];
    made->_text = [path _utf8];
    made->_file = true;
    return made;
}
- (NSString*)path
{
    return text(_text);
}
- (NSString*)absoluteString
{
    return text(_file ? "file://" + _text : _text);
}
- (BOOL)isFileURL
{
    return _file;
}
@end

NSErrorUserInfoKey const NSLocalizedDescriptionKey = @"NSLocalizedDescription";
NSErrorUserInfoKey const NSLocalizedRecoverySuggestionErrorKey = @"NSLocalizedRecoverySuggestion";
@implementation NSError {
    NSString* _domain;
    NSInteger _code;
    NSDictionary* _info;
}
+ (instancetype)errorWithDomain:(NSErrorDomain)domain code:(NSInteger)code userInfo:(NSDictionary*)info
{
    NSError* made = [[self alloc] init];
    made->_domain = domain;
    made->_code = code;
    made->_info = info;
    return made;
}
- (NSErrorDomain)domain
{
    return _domain;
}
- (NSInteger)code
{
    return _code;
}
- (NSDictionary*)userInfo
{
    return _info;
}
- (NSString*)localizedDescription
{
    NSString* t = _info[NSLocalizedDescriptionKey];
    return t ? t : @"The operation couldn't be completed.";
}
- (NSString*)localizedRecoverySuggestion
{
    return _info[NSLocalizedRecoverySuggestionErrorKey];
}
@end

@implementation NSUUID
+ (instancetype)UUID
{
    return [[self alloc] init];
}
- (NSString*)UUIDString
{
    char t[40];
    std::snprintf(t, sizeof t, "%08X-0000-4000-8000-%012lX", static_cast<unsigned>(random()),
                  reinterpret_cast<unsigned long>((__bridge void*)self));
    return text(t);
}
@end
