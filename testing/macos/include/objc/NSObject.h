// The root class and its protocol.
#pragma once
#include <objc/NSObjCRuntime.h>
#include <objc/runtime.h>
#ifdef __OBJC__
@class NSString, NSMethodSignature, NSInvocation;
struct _NSZone;
@protocol NSObject
- (BOOL)isEqual:(id)object;
@property(readonly) NSUInteger hash;
@property(readonly) Class superclass;
- (Class)class;
- (instancetype)self;
- (id)performSelector:(SEL)aSelector;
- (id)performSelector:(SEL)aSelector withObject:(id)object;
- (BOOL)isProxy;
- (BOOL)isKindOfClass:(Class)aClass;
- (BOOL)isMemberOfClass:(Class)aClass;
- (BOOL)conformsToProtocol:(Protocol*)aProtocol;
- (BOOL)respondsToSelector:(SEL)aSelector;
#if !__has_feature(objc_arc)
- (instancetype)retain;
- (oneway void)release;
- (instancetype)autorelease;
- (NSUInteger)retainCount;
#endif
@property(readonly, copy) NSString* description;
@optional
@property(readonly, copy) NSString* debugDescription;
@end
__attribute__((objc_root_class))
@interface NSObject<NSObject> {
    Class isa;
}
+ (void)load;
+ (void)initialize;
- (instancetype)init;
+ (instancetype)new;
+ (instancetype)allocWithZone:(struct _NSZone*)zone;
+ (instancetype)alloc;
- (void)dealloc;
- (id)copy __attribute__((ns_returns_retained));
- (id)mutableCopy __attribute__((ns_returns_retained));
+ (BOOL)instancesRespondToSelector:(SEL)aSelector;
- (IMP)methodForSelector:(SEL)aSelector;
- (void)doesNotRecognizeSelector:(SEL)aSelector;
+ (BOOL)isSubclassOfClass:(Class)aClass;
+ (NSUInteger)hash;
+ (Class)superclass;
+ (Class)class;
+ (NSString*)description;
@end
#endif
