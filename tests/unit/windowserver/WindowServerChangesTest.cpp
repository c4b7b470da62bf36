#include "windowserver/WindowServerChanges.h"

namespace haloric {
namespace {

using Changes = WindowServerChanges;

TEST(WindowServerChanges, members_have_their_raw_values)
{
    EXPECT_EQ(Changes().rawValue(), 0U);
    EXPECT_EQ(Changes::moved.rawValue(), 1U);
    EXPECT_EQ(Changes::resized.rawValue(), 2U);
    EXPECT_EQ(Changes::other.rawValue(), 4U);
    EXPECT_EQ((Changes{Changes::moved, Changes::other}).rawValue(), 5U);
    EXPECT_EQ(Changes(std::uint64_t{1} << 63).rawValue(), std::uint64_t{1} << 63);
}

TEST(WindowServerChanges, it_has_the_algebra_of_sets)
{
    const Changes movedAndResized{Changes::moved, Changes::resized};
    const Changes resizedAndOther{Changes::resized, Changes::other};
    EXPECT_EQ(movedAndResized.unionWith(resizedAndOther), (Changes{Changes::moved, Changes::resized, Changes::other}));
    EXPECT_EQ(movedAndResized.intersection(resizedAndOther), Changes::resized);
    EXPECT_EQ(movedAndResized.symmetricDifference(resizedAndOther), (Changes{Changes::moved, Changes::other}));
    EXPECT_TRUE(movedAndResized.contains(Changes::moved));
    EXPECT_FALSE(movedAndResized.contains(resizedAndOther));
    EXPECT_TRUE(Changes::moved.isSubset(movedAndResized));
    EXPECT_FALSE(movedAndResized.isSubset(Changes::moved));
    EXPECT_TRUE(movedAndResized.isSuperset(Changes::moved));
    EXPECT_TRUE(Changes::moved.isDisjoint(resizedAndOther));
    EXPECT_FALSE(movedAndResized.isDisjoint(resizedAndOther));
    EXPECT_TRUE(Changes().isSubset(Changes()));
}

TEST(WindowServerChanges, members_come_and_go)
{
    Changes changes;
    EXPECT_TRUE(changes.isEmpty());
    changes.insert(Changes::moved);
    changes.insert(Changes::moved);
    changes.insert(Changes::other);
    EXPECT_EQ(changes, (Changes{Changes::other, Changes::moved}));
    changes.remove(Changes::moved);
    EXPECT_EQ(changes, Changes::other);
    changes.remove(Changes::resized);
    EXPECT_EQ(changes, Changes::other);
}

TEST(WindowServerChanges, an_update_inserts_and_tells_what_was_there)
{
    Changes changes;
    EXPECT_EQ(changes.update(Changes::moved), std::nullopt);
    EXPECT_EQ(changes, Changes::moved);
    EXPECT_EQ(changes.update(Changes::moved), Changes::moved);
    EXPECT_EQ(changes.update({Changes::moved, Changes::other}), Changes::moved);
    EXPECT_EQ(changes, (Changes{Changes::moved, Changes::other}));
    EXPECT_EQ(changes.update(Changes::resized), std::nullopt);
    EXPECT_EQ(changes, (Changes{Changes::moved, Changes::resized, Changes::other}));
    EXPECT_EQ(changes.update({}), std::nullopt);
}

} // namespace
} // namespace haloric
