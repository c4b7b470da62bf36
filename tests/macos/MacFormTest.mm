// The settings form as controls: what they show and say, and what showing them again leaves alone.
#include "hosts/macos/base/MacConversions.h"
#include "hosts/macos/form/MacFormRowView.h"
#include "hosts/macos/form/MacFormSectionView.h"
#include "hosts/macos/form/MacFormView.h"

#include "controls/Menus.h"
#include "windows/Windows.h"

#include <gtest/gtest.h>

namespace haloric {
namespace {

class MacFormTest : public testing::Test {
protected:
    // Every view below this one, in order, with itself.
    static NSArray<NSView*>* allViews(NSView* view)
    {
        NSMutableArray<NSView*>* all = [NSMutableArray arrayWithObject:view];
        for (NSView* inner in view.subviews)
            for (NSView* each in allViews(inner))
                [all addObject:each];
        return all;
    }

    template <class View>
    View* find(Class kind)
    {
        for (NSView* each in allViews(view))
            if ([each isKindOfClass:kind])
                return (View*)each;
        return nil;
    }

    void show(FormControl control, const std::string& footer = "")
    {
        FormSection section{.id = "border", .title = "Border", .rows = {}, .footer = footer, .onAppear = {}};
        section.rows.push_back({"row", std::move(control)});
        [view showForm:{{section}, {}}];
    }

    MacFormView* const view = [[MacFormView alloc] initWithFrame:NSMakeRect(0, 0, 440, 560)];
};

TEST_F(MacFormTest, a_switch_is_named_with_its_group)
{
    show(FormToggle{"Enabled", true, true, [](bool) {}});
    EXPECT_EQ(stringFrom(find<NSSwitch>(NSSwitch.class).accessibilityLabel), "Border: Enabled");
}

TEST_F(MacFormTest, a_color_well_that_is_shown_sets_no_colour)
{
    std::vector<Color> set;
    const auto well = [&](const Color& color) {
        return FormColorWell{"Color", color, true, [&set](const Color& picked) { set.push_back(picked); }};
    };
    show(well({0.25, 0.5, 0.75, 1}));
    NSColorWell* shown = find<NSColorWell>(NSColorWell.class);
    [shown sendAction:shown.action to:shown.target]; // as an active one does when its colour is set
    EXPECT_TRUE(set.empty());
    shown.color = nsColorFrom({1, 0, 0, 1});
    [shown sendAction:shown.action to:shown.target];
    ASSERT_EQ(set.size(), 1U);
    EXPECT_EQ(set[0], (Color{1, 0, 0, 1}));
}

TEST_F(MacFormTest, a_menu_is_filled_when_it_opens_and_only_then)
{
    int questions = 0;
    std::vector<std::string> chosen;
    const FormMenu menu{"Add", [&] {
                            ++questions;
                            return std::vector<FormMenuItem>{{"Mail", [&] { chosen.emplace_back("Mail"); }},
                                                             {"Notes", [&] { chosen.emplace_back("Notes"); }}};
                        }};
    for (int time = 0; time < 3; ++time)
        show(menu);
    EXPECT_EQ(questions, 0);
    NSPopUpButton* button = find<NSPopUpButton>(NSPopUpButton.class);
    EXPECT_EQ(button.menu.numberOfItems, 1);
    for (int time = 1; time <= 2; ++time) {
        [button.menu _open];
        EXPECT_EQ(questions, time);
        ASSERT_EQ(button.menu.numberOfItems, 3);
    }
    EXPECT_EQ(stringFrom([button.menu itemAtIndex:0].title), "Add");
    [button selectItemAtIndex:2];
    [button sendAction:button.action to:button.target];
    EXPECT_EQ(chosen, std::vector<std::string>{"Notes"});
}

TEST_F(MacFormTest, a_footer_is_arranged_only_while_it_has_a_text)
{
    const FormToggle toggle{"Enabled", true, true, [](bool) {}};
    const auto parts = [this] { return find<MacFormSectionView>(MacFormSectionView.class).arrangedSubviews.count; };
    show(toggle, "A footer.");
    EXPECT_EQ(parts(), 3U);
    show(toggle);
    EXPECT_EQ(parts(), 2U);
    show(toggle, "It is back.");
    EXPECT_EQ(parts(), 3U);
    for (NSView* part in find<MacFormSectionView>(MacFormSectionView.class).arrangedSubviews)
        EXPECT_FALSE(part.hidden) << "a stack drops the width of a hidden view";
}

} // namespace
} // namespace haloric
