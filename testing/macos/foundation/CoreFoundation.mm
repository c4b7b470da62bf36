// Core Foundation: its objects are the objects of Foundation.
#include "foundation/Foundation.h"
#include "runtime/ObjectiveCAbi.h"

#import <CoreFoundation/CoreFoundation.h>
#import <CoreGraphics/CoreGraphics.h>

using substitute::raise;
using substitute::text;

extern "C" {
const CFAllocatorRef kCFAllocatorDefault = nullptr;
id objc_retain(id);
void objc_release(id);
CFTypeRef CFRetain(CFTypeRef object)
{
    if (!object)
        raise("CFRetain: null");
    return (__bridge CFTypeRef)objc_retain((__bridge id)object);
}
void CFRelease(CFTypeRef object)
{
    if (!object)
        raise("CFRelease: null");
    objc_release((__bridge id)object);
}
CFTypeID CFGetTypeID(CFTypeRef object)
{
    if (!object)
        raise("CFGetTypeID: null");
    return [(__bridge NSObject*)object _cfTypeID];
}
CFHashCode CFHash(CFTypeRef object) { return [(__bridge NSObject*)object hash]; }
Boolean CFEqual(CFTypeRef a, CFTypeRef b) { return [(__bridge NSObject*)a isEqual:(__bridge id)b]; }
CFTypeID CFStringGetTypeID() { return (CFTypeID)NSString.class; }
CFTypeID CFNumberGetTypeID() { return (CFTypeID)NSNumber.class; }
CFTypeID CFBooleanGetTypeID() { return 1; }
CFTypeID CFDictionaryGetTypeID() { return (CFTypeID)NSDictionary.class; }
static bool isUTF8(const uint8_t* s, CFIndex n)
{
    for (CFIndex i = 0; i < n;) {
        const int more = s[i] < 0x80                   ? 0
                         : s[i] >= 0xc2 && s[i] < 0xe0 ? 1
                         : s[i] >= 0xe0 && s[i] < 0xf0 ? 2
                         : s[i] >= 0xf0 && s[i] < 0xf5 ? 3
                                                       : -1;
        if (more < 0 || i + more >= n)
            return false;
        for (int k = 1; k <= more; ++k)
            if ((s[i + k] & 0xc0) != 0x80)
                return false;
        i += more + 1;
    }
    return true;
}
CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const uint8_t* bytes, CFIndex length, CFStringEncoding, Boolean)
{
    if (!isUTF8(bytes, length))
        return nullptr;
    return (CFStringRef)CFBridgingRetain(text(std::string(reinterpret_cast<const char*>(bytes), length)));
}
Boolean CFBooleanGetValue(CFBooleanRef value) { return ((__bridge NSNumber*)(void*)value).boolValue; }
Boolean CFNumberIsFloatType(CFNumberRef value) { return [(__bridge NSNumber*)(void*)value _isFloat]; }
Boolean CFNumberGetValue(CFNumberRef value, CFNumberType type, void* to)
{
    NSNumber* number = (__bridge NSNumber*)(void*)value;
    if (type == kCFNumberDoubleType)
        *static_cast<double*>(to) = number.doubleValue;
    else if (type == kCFNumberSInt64Type)
        *static_cast<long long*>(to) = number.longLongValue;
    else
        raise("CFNumberGetValue: type %d is not there", static_cast<int>(type));
    return true;
}
CFIndex CFArrayGetCount(CFArrayRef array) { return static_cast<CFIndex>(((__bridge NSArray*)(void*)array).count); }
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index)
{
    return (__bridge void*)((__bridge NSArray*)(void*)array)[static_cast<NSUInteger>(index)];
}
const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key)
{
    return (__bridge void*)[(__bridge NSDictionary*)(void*)dictionary objectForKey:(__bridge id)key];
}
bool CGRectMakeWithDictionaryRepresentation(CFDictionaryRef dictionary, CGRect* rect)
{
    NSDictionary* d = (__bridge NSDictionary*)(void*)dictionary;
    if (!d[@"X"])
        return false;
    *rect =
        CGRectMake([d[@"X"] doubleValue], [d[@"Y"] doubleValue], [d[@"Width"] doubleValue], [d[@"Height"] doubleValue]);
    return true;
}
}
