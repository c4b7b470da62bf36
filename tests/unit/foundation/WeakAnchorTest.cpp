#include "foundation/WeakAnchor.h"

namespace haloric {
namespace {

struct Owner {
    int value = 5;
    WeakAnchor<Owner> anchor{*this};
};

TEST(WeakAnchor, gives_the_object_while_it_lives_and_nothing_afterwards)
{
    auto owner = std::make_unique<Owner>();
    const WeakRef<Owner> ref = owner->anchor.ref();
    ASSERT_NE(ref.get(), nullptr);
    EXPECT_EQ(ref.get()->value, 5);
    owner.reset();
    EXPECT_EQ(ref.get(), nullptr);
}

TEST(WeakAnchor, a_reference_to_nothing_gives_nothing) { EXPECT_EQ(WeakRef<Owner>().get(), nullptr); }

} // namespace
} // namespace haloric
