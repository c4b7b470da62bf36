#include "hosts/x11/server/X11Property.h"

namespace haloric {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string words(std::initializer_list<std::uint32_t> values)
{
    const std::string bytes(reinterpret_cast<const char*>(std::data(values)), values.size() * sizeof(std::uint32_t));
    return bytes;
}

TEST(X11Property, values_of_the_wanted_type_are_read)
{
    const X11Property property(XCB_ATOM_CARDINAL, 32, words({7, 8, 0xFFFFFFFF}));
    EXPECT_TRUE(property.exists());
    EXPECT_EQ(property.cardinal(), 7U);
    EXPECT_THAT(property.cardinals(), ElementsAre(7U, 8U, 0xFFFFFFFFU));
    EXPECT_TRUE(property.contains(XCB_ATOM_CARDINAL, 8));
    EXPECT_FALSE(property.contains(XCB_ATOM_CARDINAL, 9));
}

TEST(X11Property, an_absent_property_has_no_values)
{
    const X11Property property;
    EXPECT_FALSE(property.exists());
    EXPECT_EQ(property.cardinal(), std::nullopt);
    EXPECT_EQ(property.window(), std::nullopt);
    EXPECT_THAT(property.atoms(), IsEmpty());
    EXPECT_EQ(property.text(), "");
    EXPECT_EQ(property.text(3), "");
}

TEST(X11Property, values_of_another_type_are_none)
{
    const X11Property property(XCB_ATOM_ATOM, 32, words({7}));
    EXPECT_EQ(property.cardinal(), std::nullopt);
    EXPECT_EQ(property.window(), std::nullopt);
    EXPECT_THAT(property.atoms(), ElementsAre(7U));
    EXPECT_FALSE(property.contains(XCB_ATOM_CARDINAL, 7));
}

TEST(X11Property, values_of_another_width_are_none)
{
    EXPECT_EQ(X11Property(XCB_ATOM_CARDINAL, 8, words({7})).cardinal(), std::nullopt);
    EXPECT_EQ(X11Property(XCB_ATOM_CARDINAL, 16, words({7})).cardinal(), std::nullopt);
    EXPECT_EQ(X11Property(XCB_ATOM_CARDINAL, 32, words({'a'})).text(), "");
}

TEST(X11Property, a_value_that_is_cut_short_is_left_out)
{
    const X11Property property(XCB_ATOM_CARDINAL, 32, words({7}) + "ab");
    EXPECT_THAT(property.cardinals(), ElementsAre(7U));
    EXPECT_EQ(X11Property(XCB_ATOM_CARDINAL, 32, "abc").cardinal(), std::nullopt);
    EXPECT_EQ(X11Property(XCB_ATOM_CARDINAL, 32, "").cardinal(), std::nullopt);
}

TEST(X11Property, text_is_read_in_parts)
{
    using namespace std::string_literals;
    const X11Property both(XCB_ATOM_STRING, 8, "instance\0Class\0"s);
    EXPECT_EQ(both.text(), "instance");
    EXPECT_EQ(both.text(1), "Class");
    EXPECT_EQ(both.text(2), "");
    EXPECT_EQ(both.text(9), "");
    EXPECT_EQ(X11Property(XCB_ATOM_STRING, 8, "a\0b"s).text(1), "b");
    EXPECT_EQ(X11Property(XCB_ATOM_STRING, 8, "alone").text(1), "");
}

TEST(X11Property, latin_1_text_is_converted_to_utf8)
{
    using namespace std::string_literals;
    const X11Property both(XCB_ATOM_STRING, 8, "plain\0Caf\xe9 \xbf\xc0\xff\x80\0"s);
    EXPECT_EQ(both.latin1Text(0), "plain");
    EXPECT_EQ(both.latin1Text(1), "Café ¿Àÿ\xc2\x80");
    EXPECT_EQ(both.latin1Text(2), "");
}

} // namespace
} // namespace haloric
