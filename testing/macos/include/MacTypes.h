// The basic types of Carbon's time.
#pragma once
#include <stdint.h>
typedef unsigned char UInt8;
typedef signed char SInt8;
typedef unsigned short UInt16;
typedef short SInt16;
typedef unsigned int UInt32;
typedef int SInt32;
typedef unsigned long long UInt64;
typedef long long SInt64;
typedef float Float32;
typedef double Float64;
typedef SInt32 Fixed;
typedef Fixed* FixedPtr;
typedef SInt32 Fract;
typedef UInt32 UnsignedFixed;
typedef char* Ptr;
typedef Ptr* Handle;
typedef long Size;
typedef SInt16 OSErr;
typedef SInt32 OSStatus;
typedef void* LogicalAddress;
typedef const void* ConstLogicalAddress;
typedef void* PhysicalAddress;
typedef UInt8* BytePtr;
typedef unsigned long ByteCount, ByteOffset, ItemCount, PBVersion;
typedef SInt32 Duration;
typedef struct {
    UInt32 hi, lo;
} UnsignedWide;
typedef UnsignedWide AbsoluteTime;
typedef UInt32 OptionBits;
typedef SInt16 ScriptCode, LangCode, RegionCode;
typedef UInt32 FourCharCode;
typedef FourCharCode OSType, ResType;
typedef OSType* OSTypePtr;
typedef ResType* ResTypePtr;
typedef unsigned char Boolean;
typedef long (*ProcPtr)(void);
typedef ProcPtr UniversalProcPtr;
typedef UInt32 UTF32Char;
typedef UInt16 UniChar, UTF16Char;
typedef UInt8 UTF8Char;
typedef UniChar* UniCharPtr;
typedef unsigned long UniCharCount;
typedef UniCharCount* UniCharCountPtr;
typedef unsigned char Str255[256], Str63[64], Str32[33], Str31[32], Str27[28], Str15[16];
typedef unsigned char* StringPtr;
typedef const unsigned char *ConstStringPtr, *ConstStr255Param, *ConstStr63Param, *ConstStr31Param;
typedef StringPtr* StringHandle;
typedef UInt8 Byte;
typedef SInt8 SignedByte;
typedef UInt32 FourCC;
struct Point {
    short v, h;
};
typedef struct Point Point;
typedef Point* PointPtr;
struct Rect {
    short top, left, bottom, right;
};
typedef struct Rect Rect;
typedef Rect* RectPtr;
struct ProcessSerialNumber {
    UInt32 highLongOfPSN, lowLongOfPSN;
};
typedef struct ProcessSerialNumber ProcessSerialNumber;
typedef ProcessSerialNumber* ProcessSerialNumberPtr;
enum { noErr = 0 };
typedef struct Float32Point {
    Float32 x, y;
} Float32Point;
typedef void *URefCon, *SRefCon;
typedef struct {
    SInt32 x, y;
} FixedPoint;
typedef struct {
    Fixed left, top, right, bottom;
} FixedRect;
typedef struct Float80 {
    SInt16 exp;
    UInt16 man[4];
} Float80;
typedef Float80 extended80;
typedef UInt32 UnsignedFixed32;
typedef short CharsPtrDummy;
typedef void* PRefCon;
typedef Str63 StrFileName;
typedef ConstStr63Param ConstStrFileNameParam;
typedef unsigned char Style;
typedef short StyleParameter;
typedef Style StyleField;
typedef struct _malloc_zone_t malloc_zone_t;
typedef int cpu_type_t, cpu_subtype_t;
typedef struct wide {
    UInt32 lo;
    SInt32 hi;
} wide;
typedef UnsignedWide AbsoluteTime_;
typedef struct {
    UInt32 highLong, lowLong;
} PSNDummy;
