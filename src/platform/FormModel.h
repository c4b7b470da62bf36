// A form as data: grouped sections of labelled controls. Its owner rebuilds it after every change and hands it to
// the window; a control keeps its identity by its id. Main thread.
#pragma once

#include "foundation/Color.h"
#include "foundation/Task.h"
#include "platform/Image.h"

#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace haloric {

// `set`, `choose`, `perform` and `remove` are called when the user acts, never when the form itself is replaced. They
// may replace the form before they return, so a host calls a copy and reads nothing of the old model afterwards.

struct FormToggle {
    std::string label;
    bool isOn = false;
    bool isEnabled = true;
    std::function<void(bool)> set;
};

// `value` may lie outside the range, or between steps, when it was stored so: it is shown as near as the control can,
// and stays until the user moves the slider. What `set` gets is brought onto the range and its steps by the owner.
struct FormSlider {
    std::string label; // with the value in it
    double value = 0;
    double minimum = 0;
    double maximum = 1;
    double step = 1; // counted from `minimum`
    std::function<void(double)> set;
};

// A colour well without an opacity control. Components are sRGB.
struct FormColorWell {
    std::string label;
    Color color;
    bool isEnabled = true;
    std::function<void(const Color&)> set;
    std::string title = {}; // of the panel that it opens: what is coloured; empty: the label
};

struct FormPicker {
    std::string label;
    std::vector<std::string> options;
    std::size_t selected = 0;
    std::function<void(std::size_t)> choose;
};

// One application of a list, with a borderless button that takes it out.
struct FormListRow {
    Image icon;
    Size iconSize; // points
    std::string title;
    Image removeImage;
    std::string removeLabel; // for assistive technology
    Task remove;
};

struct FormMenuItem {
    std::string title;
    Task perform;
};

// `items` is called each time the menu opens, because it may be slow; it may return no items.
struct FormMenu {
    std::string label;
    std::function<std::vector<FormMenuItem>()> items;
};

struct FormButton {
    std::string label;
    Task perform;
};

using FormControl = std::variant<FormToggle, FormSlider, FormColorWell, FormPicker, FormListRow, FormMenu, FormButton>;

struct FormRow {
    std::string id; // unique in the form; the same control has the same id in the next form
    FormControl control;
};

struct FormSection {
    std::string id;
    std::string title;
    std::vector<FormRow> rows = {};
    std::string footer = {}; // empty for none
    Task onAppear = {}; // when the section comes on screen with its window, or the window gets the focus; may be empty
};

struct FormModel {
    std::vector<FormSection> sections; // grouped, top to bottom
    std::vector<FormRow> buttons;      // a row below them, left to right; only FormButton

    // What the user must know whatever part of the form is scrolled into view; empty for none. A host that can always
    // store the settings need not show it.
    std::string notice = {};
};

} // namespace haloric
