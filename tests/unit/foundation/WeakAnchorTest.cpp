#include "foundation/WeakAnchor.h"

#include "foundation/Task.h"

#include <string>

namespace haloric {
namespace {

struct Owner {
    int value = 5;

    void add(int amount) { value += amount; }
    void take(std::unique_ptr<int> amount) { value += *amount; }
    void write(int& to) const { to = value; }

    WeakAnchor<Owner> anchor{*this};
};

struct WeakAnchorTest : ::testing::Test {
    std::unique_ptr<Owner> owner = std::make_unique<Owner>();
};

TEST_F(WeakAnchorTest, gives_the_object_while_it_lives_and_nothing_afterwards)
{
    const WeakRef<Owner> ref = owner->anchor.ref();
    ASSERT_NE(ref.get(), nullptr);
    EXPECT_EQ(ref.get()->value, 5);
    owner.reset();
    EXPECT_EQ(ref.get(), nullptr);
}

TEST_F(WeakAnchorTest, a_reference_to_nothing_gives_nothing) { EXPECT_EQ(WeakRef<Owner>().get(), nullptr); }

TEST_F(WeakAnchorTest, a_bound_member_function_is_called_with_the_callback_s_arguments)
{
    const std::function<void(int)> callback = owner->anchor.bind(&Owner::add);
    callback(2);
    callback(3);
    EXPECT_EQ(owner->value, 10);
}

TEST_F(WeakAnchorTest, bound_values_come_before_the_callback_s_arguments)
{
    const Task task = owner->anchor.bind(&Owner::add, 7);
    task();
    EXPECT_EQ(owner->value, 12);

    const auto append = [](Owner& self, const std::string& text, char next) { self.value = std::stoi(text + next); };
    const std::function<void(char)> callback = owner->anchor.bind(append, std::string("4"));
    callback('2');
    EXPECT_EQ(owner->value, 42);
}

TEST_F(WeakAnchorTest, arguments_are_handed_on_as_they_are)
{
    const auto take = owner->anchor.bind(&Owner::take);
    take(std::make_unique<int>(4));
    EXPECT_EQ(owner->value, 9);

    int seen = 0;
    const std::function<void(int&)> write = owner->anchor.bind(&Owner::write);
    write(seen);
    EXPECT_EQ(seen, 9);
}

TEST_F(WeakAnchorTest, a_callback_does_nothing_once_the_object_is_destroyed)
{
    bool called = false;
    const Task task = owner->anchor.bind([&called](Owner&) { called = true; });
    const std::function<void(std::unique_ptr<int>)> take = owner->anchor.bind(&Owner::take);
    owner.reset();
    task();
    take(nullptr);
    EXPECT_FALSE(called);
}

TEST_F(WeakAnchorTest, a_callback_may_destroy_the_object)
{
    const Task task = owner->anchor.bind([this](Owner&) { owner.reset(); });
    task();
    EXPECT_EQ(owner, nullptr);
    task();
}

} // namespace
} // namespace haloric
