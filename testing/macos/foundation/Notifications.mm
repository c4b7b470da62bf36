// Notification centres.
#include "foundation/Balance.h"
#include "foundation/Foundation.h"
#include "runtime/ObjectiveCAbi.h"

using substitute::raise;
using substitute::text;

namespace {

long g_observers = 0; // main thread
const substitute::Counted counted("notification observers", [] { return g_observers; });

} // namespace

@implementation NSOperationQueue
+ (NSOperationQueue*)mainQueue
{
    static NSOperationQueue* const one = substitute::permanent([] { return [[NSOperationQueue alloc] init]; });
    return one;
}
@end
@implementation NSNotification {
@public
    NSString* _name;
    id _object;
    NSDictionary* _info;
}
+ (instancetype)notificationWithName:(NSString*)name object:(id)object userInfo:(NSDictionary*)info
{
    NSNotification* made = [[self alloc] init];
    made->_name = name;
    made->_object = object;
    made->_info = info;
    return made;
}
- (NSNotificationName)name
{
    return _name;
}
- (id)object
{
    return _object;
}
- (NSDictionary*)userInfo
{
    return _info;
}
@end
@interface RTObserver : NSObject {
@public
    NSString* name;
    id __weak object;
    NSOperationQueue* queue;
    void (^block)(NSNotification*);
}
@end
@implementation RTObserver
@end
@implementation NSNotificationCenter {
    NSMutableArray<RTObserver*>* _observers;
}
+ (NSNotificationCenter*)defaultCenter
{
    static NSNotificationCenter* const one = substitute::permanent([] { return [[NSNotificationCenter alloc] init]; });
    return one;
}
- (instancetype)init
{
    if ((self = [super init]))
        _observers = [NSMutableArray array];
    return self;
}
- (id<NSObject>)addObserverForName:(NSNotificationName)name
                            object:(id)object
                             queue:(NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification*))block
{
    RTObserver* made = [[RTObserver alloc] init];
    made->name = name;
    made->object = object;
    made->queue = queue;
    made->block = block;
    [_observers addObject:made];
    ++g_observers;
    return made;
}
- (void)removeObserver:(id)observer
{
    // removeObserver: tolerates it; strict: it is unbalanced.
    if (![_observers containsObject:observer])
        raise("-[NSNotificationCenter removeObserver:]: the observer is not "
              "registered");
    RTObserver* removed = observer;
    removed->block = nil; // strict: at once, even while it runs
    [_observers removeObjectIdenticalTo:observer];
    --g_observers;
}
- (void)postNotificationName:(NSNotificationName)name object:(id)object userInfo:(NSDictionary*)info
{
    NSNotification* notification = [NSNotification notificationWithName:name object:object userInfo:info];
    for (RTObserver* one in [_observers copy]) {
        if (![one->name isEqual:name])
            continue;
        void (^__unsafe_unretained block)(NSNotification*) =
            one->block; // strict: the block may be released while it runs
        if (block)
            block(notification);
    }
}
- (void)postNotificationName:(NSNotificationName)name object:(id)object
{
    [self postNotificationName:name object:object userInfo:nil];
}
- (NSUInteger)_observerCount
{
    return _observers.count;
}
@end
