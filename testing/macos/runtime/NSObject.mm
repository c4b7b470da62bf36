// The root class, blocks' classes and constant texts. Without automatic
// reference counting.
#include "foundation/Foundation.h"
#include "runtime/ObjectiveCAbi.h"

extern "C" id objc_retain(id);
extern "C" void objc_release(id);
extern "C" id objc_autorelease(id);
extern "C" void* _Block_copy(const void*);
#define RT(x) reinterpret_cast<rt_id>(x)
#define RTC(x) reinterpret_cast<objc_class_t*>(x)
#define RTS(x) reinterpret_cast<rt_SEL>(x)

@implementation NSObject
+ (instancetype)alloc
{
    return reinterpret_cast<id>(class_createInstance(RTC(self), 0));
}
+ (instancetype)allocWithZone:(NSZone*)zone
{
    return [self alloc];
}
+ (instancetype)new
{
    return [[self alloc] init];
}
+ (Class)class
{
    return (Class)self;
}
+ (Class)superclass
{
    return class_getSuperclass((Class)self);
}
+ (NSUInteger)hash
{
    return (NSUInteger)self;
}
+ (BOOL)isSubclassOfClass:(Class)other
{
    for (Class at = (Class)self; at; at = class_getSuperclass(at))
        if (at == other)
            return YES;
    return NO;
}
+ (BOOL)instancesRespondToSelector:(SEL)sel
{
    return rt_find(RTC(self), RTS(sel)) != nullptr;
}
+ (NSString*)description
{
    return [NSString stringWithUTF8String:class_getName((Class)self)];
}
- (instancetype)init
{
    return self;
}
- (instancetype)self
{
    return self;
}
- (Class)class
{
    return object_getClass(self);
}
- (Class)superclass
{
    return class_getSuperclass(object_getClass(self));
}
- (void)dealloc
{
    object_dispose(RT(self));
}
- (instancetype)retain
{
    return objc_retain(self);
}
- (oneway void)release
{
    objc_release(self);
}
- (instancetype)autorelease
{
    return objc_autorelease(self);
}
- (NSUInteger)retainCount
{
    return rt_retain_count(RT(self));
}
- (BOOL)isEqual:(id)other
{
    return self == other;
}
- (NSUInteger)hash
{
    return (NSUInteger)self;
}
- (BOOL)isProxy
{
    return NO;
}
- (BOOL)isKindOfClass:(Class)cls
{
    for (Class at = object_getClass(self); at; at = class_getSuperclass(at))
        if (at == cls)
            return YES;
    return NO;
}
- (BOOL)isMemberOfClass:(Class)cls
{
    return object_getClass(self) == cls;
}
- (BOOL)respondsToSelector:(SEL)sel
{
    return rt_find(RTC(object_getClass(self)), RTS(sel)) != nullptr;
}
- (BOOL)conformsToProtocol:(Protocol*)protocol
{
    rt_fatal("conformsToProtocol: is not there");
}
- (id)performSelector:(SEL)sel
{
    return reinterpret_cast<id (*)(id, SEL)>(rt_lookup(RT(self), RTS(sel)))(self, sel);
}
- (id)performSelector:(SEL)sel withObject:(id)object
{
    return reinterpret_cast<id (*)(id, SEL, id)>(rt_lookup(RT(self), RTS(sel)))(self, sel, object);
}
- (IMP)methodForSelector:(SEL)sel
{
    return reinterpret_cast<IMP>(rt_lookup(RT(self), RTS(sel)));
}
- (void)doesNotRecognizeSelector:(SEL)sel
{
    rt_fatal("%s does not recognize %s", class_getName([self class]), sel_getName(sel));
}
- (id)copy
{
    return [(id)self copyWithZone:nullptr];
}
- (id)mutableCopy
{
    return [(id)self mutableCopyWithZone:nullptr];
}
- (NSString*)description
{
    return [NSString stringWithUTF8String:class_getName([self class])];
}
- (NSString*)debugDescription
{
    return [self description];
}
- (CFTypeID)_cfTypeID
{
    return (CFTypeID)[self class];
}
@end

@interface RTStackBlock : NSObject
@end
@implementation RTStackBlock
- (id)copyWithZone:(NSZone*)zone
{
    return static_cast<id>(_Block_copy(self));
}
@end
@interface RTMallocBlock : NSObject
@end
@implementation RTMallocBlock
- (id)copyWithZone:(NSZone*)zone
{
    return objc_retain(self);
}
@end
@interface RTGlobalBlock : NSObject
@end
@implementation RTGlobalBlock
- (id)copyWithZone:(NSZone*)zone
{
    return self;
}
@end

asm(R"(
    .globl _NSConcreteStackBlock
    .set _NSConcreteStackBlock, OBJC_CLASS_$_RTStackBlock
    .globl _NSConcreteMallocBlock
    .set _NSConcreteMallocBlock, OBJC_CLASS_$_RTMallocBlock
    .globl _NSConcreteGlobalBlock
    .set _NSConcreteGlobalBlock, OBJC_CLASS_$_RTGlobalBlock
    .globl rt_malloc_block_class
    .set rt_malloc_block_class, OBJC_CLASS_$_RTMallocBlock
)");
