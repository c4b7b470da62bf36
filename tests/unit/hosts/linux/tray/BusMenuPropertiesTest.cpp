#include "hosts/linux/tray/BusMenuProperties.h"

#include "menubar/Swatch.h"

#include <gtest/gtest.h>

namespace haloric {
namespace {

BusMenuProperties propertiesOf(const MenuItem& item) { return busMenuProperties(item, {}); }

MenuItem titled(const std::string& title)
{
    MenuItem item;
    item.title = title;
    return item;
}

TEST(BusMenuProperties, an_ordinary_item_has_only_its_label)
{
    EXPECT_EQ(propertiesOf(titled("Settings…")), (BusMenuProperties{{"label", std::string("Settings…")}}));
}

TEST(BusMenuProperties, an_underscore_of_the_title_is_no_access_key)
{
    EXPECT_EQ(propertiesOf(titled("a_b")).at("label"), BusMenuValue(std::string("a__b")));
}

TEST(BusMenuProperties, a_separator_has_no_label)
{
    EXPECT_EQ(propertiesOf(MenuItem::separator()), (BusMenuProperties{{"type", std::string("separator")}}));
}

TEST(BusMenuProperties, disabled_and_hidden_are_stated)
{
    MenuItem item = titled("Launch at Login");
    item.isEnabled = false;
    item.isHidden = true;
    EXPECT_EQ(propertiesOf(item).at("enabled"), BusMenuValue(false));
    EXPECT_EQ(propertiesOf(item).at("visible"), BusMenuValue(false));
}

TEST(BusMenuProperties, a_checkable_item_has_a_mark_in_both_states)
{
    MenuItem item = titled("Border");
    item.isCheckable = true;
    EXPECT_EQ(propertiesOf(item).at("toggle-type"), BusMenuValue(std::string("checkmark")));
    EXPECT_EQ(propertiesOf(item).at("toggle-state"), BusMenuValue(std::int32_t{0}));
    item.isOn = true;
    EXPECT_EQ(propertiesOf(item).at("toggle-state"), BusMenuValue(std::int32_t{1}));
}

TEST(BusMenuProperties, a_submenu_and_a_shortcut_are_stated)
{
    MenuItem item = titled("Accent");
    item.submenu.push_back(titled("Teal"));
    item.keyEquivalent = ",";
    EXPECT_EQ(propertiesOf(item).at("children-display"), BusMenuValue(std::string("submenu")));
    EXPECT_EQ(propertiesOf(item).at("shortcut"), BusMenuValue(BusMenuShortcut{{"Control", ","}}));
}

TEST(BusMenuProperties, a_drawn_image_becomes_a_png)
{
    MenuItem item = titled("Teal");
    EXPECT_EQ(busMenuPicture(item), "");
    item.image = swatch({0.2, 0.7, 0.7, 1});
    const std::string png = busMenuPicture(item);
    EXPECT_EQ(png.substr(0, 4), "\x89PNG");
    EXPECT_EQ(busMenuProperties(item, png).at("icon-data"), BusMenuValue(BusMenuPicture{png}));
}

} // namespace
} // namespace haloric
