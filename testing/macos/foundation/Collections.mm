// Arrays and dictionaries.
#include "foundation/Foundation.h"
#include "runtime/ObjectiveCAbi.h"

#include <utility>
#include <vector>

using substitute::raise;
using substitute::text;

@implementation NSArray {
@public
    std::vector<id> _objects;
    unsigned long _changes;
}
+ (instancetype)array
{
    return [[self alloc] init];
}
+ (instancetype)arrayWithObject:(id)one
{
    return [self arrayWithObjects:&one count:1];
}
+ (instancetype)arrayWithArray:(NSArray*)other
{
    NSArray* made = [[self alloc] init];
    made->_objects = other->_objects;
    return made;
}
+ (instancetype)arrayWithObjects:(id*)objects count:(NSUInteger)count
{
    NSArray* made = [[self alloc] init];
    for (NSUInteger i = 0; i < count; ++i) {
        if (!objects[i])
            raise("NSInvalidArgumentException: attempt to insert nil object from "
                  "objects[%lu]",
                  i);
        made->_objects.push_back(objects[i]);
    }
    return made;
}
- (NSUInteger)count
{
    return _objects.size();
}
- (id)objectAtIndex:(NSUInteger)index
{
    if (index >= _objects.size())
        raise("NSRangeException: index %lu beyond bounds [0 .. %ld]", index, static_cast<long>(_objects.size()) - 1);
    return _objects[index];
}
- (id)objectAtIndexedSubscript:(NSUInteger)index
{
    return [self objectAtIndex:index];
}
- (id)firstObject
{
    return _objects.empty() ? nil : _objects.front();
}
- (id)lastObject
{
    return _objects.empty() ? nil : _objects.back();
}
- (BOOL)containsObject:(id)object
{
    return [self indexOfObject:object] != NSIntegerMax;
}
- (NSUInteger)indexOfObject:(id)object
{
    for (std::size_t i = 0; i < _objects.size(); ++i)
        if ([_objects[i] isEqual:object])
            return i;
    return NSIntegerMax;
}
- (BOOL)isEqualToArray:(NSArray*)other
{
    if (!other || _objects.size() != other->_objects.size())
        return NO;
    for (std::size_t i = 0; i < _objects.size(); ++i)
        if (![_objects[i] isEqual:other->_objects[i]])
            return NO;
    return YES;
}
- (BOOL)isEqual:(id)other
{
    return [other isKindOfClass:NSArray.class] && [self isEqualToArray:other];
}
- (NSUInteger)hash
{
    return _objects.size();
}
- (id)copyWithZone:(NSZone*)zone
{
    return [NSArray arrayWithArray:self];
}
- (id)mutableCopyWithZone:(NSZone*)zone
{
    return [NSMutableArray arrayWithArray:self];
}
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)length
{
    if (state->state)
        return 0;
    state->state = 1;
    state->itemsPtr = reinterpret_cast<id __unsafe_unretained*>(_objects.data());
    state->mutationsPtr = &_changes;
    return _objects.size();
}
- (CFTypeID)_cfTypeID
{
    return (CFTypeID)NSArray.class;
}
@end

@implementation NSMutableArray
- (void)addObject:(id)object
{
    if (!object)
        raise("NSInvalidArgumentException: object cannot be nil");
    ++_changes;
    _objects.push_back(object);
}
- (void)addObjectsFromArray:(NSArray*)other
{
    ++_changes;
    _objects.insert(_objects.end(), other->_objects.begin(), other->_objects.end());
}
- (void)insertObject:(id)object atIndex:(NSUInteger)index
{
    if (!object || index > _objects.size())
        raise("NSRangeException: insertObject:atIndex: %lu", index);
    ++_changes;
    _objects.insert(_objects.begin() + index, object);
}
- (void)removeObject:(id)object
{
    ++_changes;
    std::erase_if(_objects, [&](id one) { return [one isEqual:object]; });
}
- (void)removeObjectIdenticalTo:(id)object
{
    ++_changes;
    std::erase_if(_objects, [&](id one) { return one == object; });
}
- (void)removeObjectAtIndex:(NSUInteger)index
{
    if (index >= _objects.size())
        raise("NSRangeException: removeObjectAtIndex: %lu", index);
    ++_changes;
    _objects.erase(_objects.begin() + index);
}
- (void)removeAllObjects
{
    ++_changes;
    _objects.clear();
}
@end

@implementation NSDictionary {
@public
    std::vector<std::pair<id, id>> _pairs;
    unsigned long _changes;
}
+ (instancetype)dictionary
{
    return [[self alloc] init];
}
+ (instancetype)dictionaryWithObjects:(id*)objects forKeys:(id<NSCopying>*)keys count:(NSUInteger)count
{
    NSDictionary* made = [[self alloc] init];
    for (NSUInteger i = 0; i < count; ++i) {
        if (!objects[i] || !keys[i])
            raise("NSInvalidArgumentException: attempt to insert nil object from "
                  "objects[%lu]",
                  i);
        [made _put:objects[i] for:(id)keys[i]];
    }
    return made;
}
- (void)_put:(id)object for:(id)key
{
    if (!object || !key)
        raise("NSInvalidArgumentException: setObject:forKey: nil");
    ++_changes;
    for (auto& pair : _pairs)
        if ([pair.first isEqual:key]) {
            pair.second = object;
            return;
        }
    _pairs.emplace_back([key copy], object);
}
- (NSUInteger)count
{
    return _pairs.size();
}
- (id)objectForKey:(id)key
{
    for (const auto& pair : _pairs)
        if ([pair.first isEqual:key])
            return pair.second;
    return nil;
}
- (id)objectForKeyedSubscript:(id)key
{
    return [self objectForKey:key];
}
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)length
{
    NSUInteger done = state->state;
    NSUInteger count = 0;
    for (; count < length && done < _pairs.size(); ++count, ++done)
        buffer[count] = _pairs[done].first;
    state->state = done;
    state->itemsPtr = buffer;
    state->mutationsPtr = &_changes;
    return count;
}
- (NSArray*)allKeys
{
    NSMutableArray* keys = [NSMutableArray array];
    for (const auto& pair : _pairs)
        [keys addObject:pair.first];
    return keys;
}
- (NSArray*)allValues
{
    NSMutableArray* values = [NSMutableArray array];
    for (const auto& pair : _pairs)
        [values addObject:pair.second];
    return values;
}
- (id)copyWithZone:(NSZone*)zone
{
    NSDictionary* made = [[NSDictionary alloc] init];
    made->_pairs = _pairs;
    return made;
}
- (CFTypeID)_cfTypeID
{
    return (CFTypeID)NSDictionary.class;
}
@end
@implementation NSMutableDictionary
- (void)setObject:(id)object forKey:(id<NSCopying>)key
{ [(id)self _put:object for:(id)key];
}
- (void)setObject:(id)object forKeyedSubscript:(id<NSCopying>)key
{
    if (object) [(id)self _put:object for:(id)key];
    else
        [self removeObjectForKey:(id)key];
}
- (void)removeObjectForKey:(id)key
{
    ++_changes;
    std::erase_if(_pairs, [&](const auto& pair) { return [pair.first isEqual:key]; });
}
@end

// What @[] and @{} are.
extern "C" {
NSArray* __NSArray0__;
NSDictionary* __NSDictionary0__;
}
__attribute__((constructor(102))) static void makeEmpty()
{
    __NSArray0__ = [[NSArray alloc] init];
    __NSDictionary0__ = [[NSDictionary alloc] init];
}
