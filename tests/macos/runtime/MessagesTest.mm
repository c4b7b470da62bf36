// Messages: to objects, classes, superclasses and nil.
#include "macos/support/Probe.h"

#include <gtest/gtest.h>

namespace {

struct Large {
    double a, b, c, d;
};

} // namespace

@interface Shape : NSObject {
@public
    int corners;
}
+ (int)kinds;
- (int)describe;
- (Large)large;
- (double)half:(double)of third:(float)other count:(int)count rest:(long)rest more:(long)more last:(char)last;
@end

@implementation Shape
+ (int)kinds
{
    return 1;
}
- (int)describe
{
    return 10;
}
- (Large)large
{
    return {1, 2, 3, 4};
}
- (double)half:(double)of third:(float)other count:(int)count rest:(long)rest more:(long)more last:(char)last
{
    return of / 2 + other + count + static_cast<double>(rest + more) + last;
}
@end

@interface Square : Shape {
@public
    double side;
}
@end

@implementation Square
+ (int)kinds
{
    return [super kinds] + 1;
}
- (int)describe
{
    return [super describe] + 1;
}
- (Large)large
{
    Large result = [super large];
    result.d = side;
    return result;
}
@end

@interface NSObject (NotImplemented)
- (void)unheardOf;
@end

@interface Shape (Added)
- (int)added;
@end
@implementation Shape (Added)
- (int)added
{
    return 7;
}
@end

namespace {

TEST(Messages, super_calls_the_implementation_of_the_superclass)
{
    EXPECT_EQ([[[Square alloc] init] describe], 11);
    EXPECT_EQ([Square kinds], 2);
}

TEST(Messages, arguments_of_all_registers_and_the_stack_arrive)
{
    EXPECT_DOUBLE_EQ([[[Shape alloc] init] half:3 third:0.25F count:2 rest:1'000'000'000'000 more:-1 last:'\1'],
                     1.5 + 0.25 + 2 + 1'000'000'000'000 - 1 + 1);
}

TEST(Messages, a_structure_is_returned_in_memory_also_by_super)
{
    Square* square = [[Square alloc] init];
    square->side = 9;
    const Large large = [square large];
    EXPECT_EQ(large.a, 1);
    EXPECT_EQ(large.d, 9);
}

TEST(Messages, nil_returns_zeros)
{
    Shape* none = nil;
    EXPECT_EQ([none describe], 0);
    EXPECT_EQ([none half:1 third:1 count:1 rest:1 more:1 last:1], 0);
    EXPECT_EQ([none class], nil);
    const Large large = [none large];
    EXPECT_EQ(large.a + large.b + large.c + large.d, 0);
}

TEST(Messages, the_variables_of_a_subclass_lie_behind_those_of_its_superclass)
{
    Square* square = [[Square alloc] init];
    square->corners = 4;
    square->side = 2.5;
    EXPECT_EQ(square->corners, 4);
    EXPECT_EQ(square->side, 2.5);
}

TEST(Messages, a_category_adds_methods_to_the_class_and_its_subclasses)
{
    EXPECT_EQ([[[Square alloc] init] added], 7);
    EXPECT_TRUE([[[Square alloc] init] respondsToSelector:@selector(added)]);
    EXPECT_FALSE([[[NSObject alloc] init] respondsToSelector:@selector(added)]);
}

TEST(Messages, a_class_knows_its_ancestors)
{
    id square = [[Square alloc] init];
    EXPECT_TRUE([square isKindOfClass:Shape.class]);
    EXPECT_FALSE([square isMemberOfClass:Shape.class]);
    EXPECT_TRUE([Square isSubclassOfClass:NSObject.class]);
    EXPECT_EQ(NSClassFromString(@"Square"), Square.class);
    EXPECT_EQ(NSClassFromString(@"NoSuchClass"), nil);
}

TEST(MessagesDeathTest, an_unknown_message_ends_the_program_with_its_name)
{
    id square = [[Square alloc] init];
    EXPECT_DEATH([square unheardOf], "-\\[Square unheardOf\\]: unrecognized");
}

} // namespace
