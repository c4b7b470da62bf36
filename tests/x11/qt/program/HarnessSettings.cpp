#include "x11/qt/program/HarnessSettings.h"

#include "drawing/Canvas.h"

#include <cstdio>

namespace haloric {

namespace {

std::string number(double value)
{
    char text[400]; // enough for every double
    std::snprintf(text, sizeof text, "%.2f", value);
    return text;
}

Image dot(const Color& color)
{
    return DrawnImage{.size = {14, 14}, .draw = [color](Canvas& canvas, const SystemColors& system) {
                          const Path circle = Path::roundedRect({1, 1, 12, 12}, 6);
                          canvas.fill(circle, color, FillRule::nonZero);
                          canvas.stroke(circle, system.separator, 1);
                      }};
}

} // namespace

void HarnessSettings::note(const std::string& line)
{
    report(line);
    changed();
}

FormSection HarnessSettings::controls()
{
    FormSection section;
    section.id = section.title = "Controls";
    section.rows.push_back({"toggle", FormToggle{"Hide highlight for full-screen windows", isOn, true, [this](bool on) {
                                                     isOn = on;
                                                     note(on ? "toggle on" : "toggle off");
                                                 }}});
    section.rows.push_back(
        {"disabled", FormToggle{"Launch at login", true, false, [this](bool) { report("disabled"); }}});
    section.rows.push_back({"well", FormColorWell{"Accent color", color, isWellEnabled, [this](const Color& chosen) {
                                                      color = chosen;
                                                      note("well " + number(chosen.red) + " " + number(chosen.green) +
                                                           " " + number(chosen.blue) + " " + number(chosen.alpha));
                                                  }}});
    section.rows.push_back({"slider", FormSlider{.label = "Width: " + number(width) + " pt",
                                                 .value = width,
                                                 .minimum = 1,
                                                 .maximum = 12,
                                                 .step = 0.5,
                                                 .set = [this](double value) {
                                                     width = value;
                                                     note("slider " + number(value));
                                                 }}});
    section.footer = "Launch at login is available when running from Haloric.app. Windows without a title bar aren't "
                     "tinted.";
    section.onAppear = [this] { report("appeared"); };
    return section;
}

FormSection HarnessSettings::applicationList()
{
    FormSection section;
    section.id = section.title = "Dim other windows";
    section.rows.push_back(
        {"picker",
         FormPicker{"Apply to", {"All other windows", "Only selected apps"}, scope, [this](std::size_t chosen) {
                        scope = chosen;
                        note("picker " + std::to_string(chosen));
                    }}});
    if (scope == 0)
        return section;
    for (const std::string& name : applications) {
        section.rows.push_back(
            {"app-" + name, FormListRow{.icon = FileIcon{"/usr/share/applications/" + name + ".desktop"},
                                        .iconSize = {18, 18},
                                        .title = name,
                                        .removeImage = SymbolImage{"minus.circle"},
                                        .removeLabel = "Remove " + name,
                                        .remove = [this, name] {
                                            std::erase(applications, name);
                                            note("removed " + name);
                                        }}});
    }
    const auto running = [this] {
        std::vector<FormMenuItem> items;
        for (const std::string name : {"Editor", "Terminal & Co"})
            items.push_back({name, [this, name] {
                                 applications.push_back(name);
                                 note("added " + name);
                             }});
        return items;
    };
    section.rows.push_back({"running", FormMenu{"Add Running App", running}});
    section.rows.push_back({"choose", FormButton{"Choose Application…", [this] { report("choose"); }}});
    section.footer = "Only windows of the selected apps are dimmed while they're not in focus.";
    return section;
}

FormModel HarnessSettings::form()
{
    FormModel form{{controls(), applicationList()}, {}};
    for (const char* title : {"Reset to Defaults", "Grant Accessibility…", "Restart", "Quit Haloric"})
        form.buttons.push_back({title, FormButton{title, [this, title] { report(std::string("button ") + title); }}});
    form.notice = notice;
    return form;
}

MenuModel HarnessSettings::menu()
{
    const auto heading = [](const std::string& title) {
        MenuItem made;
        made.title = title;
        return made;
    };
    const auto item = [&, this](const std::string& title, const std::string& selector, const std::string& key = {}) {
        MenuItem made = heading(title);
        made.keyEquivalent = key;
        made.action = MenuAction{selector, MenuTarget::controller,
                                 [this](const MenuItem& sender) { report("menu " + sender.title); }};
        return made;
    };
    const auto toggle = [&](const std::string& title, const std::string& selector) {
        MenuItem made = item(title, selector);
        made.isCheckable = true;
        return made;
    };
    std::vector<MenuItem> items;
    items.push_back(heading("Haloric"));
    items.back().isEnabled = false;
    items.push_back(MenuItem::separator());
    items.push_back(toggle("Border", "toggleBorder"));
    items.back().isOn = true;
    items.push_back(toggle("Dim other windows", "toggleDim"));
    items.push_back(MenuItem::separator());
    items.push_back(heading("Accent color"));
    const std::pair<const char*, Color> presets[] = {{"Blue", {0.04, 0.52, 1, 1}}, {"Teal", {0.35, 0.78, 0.98, 1}}};
    for (const auto& [title, preset] : presets) {
        items.back().submenu.push_back(item(title, "pickPreset:"));
        items.back().submenu.back().image = dot(preset);
    }
    items.push_back(item("Settings…", "openSettings", ","));
    items.push_back(toggle("Launch at Login", "toggleLogin"));
    items.back().isEnabled = false;
    items.back().toolTip = "Available when running from Haloric.app";
    items.push_back(item("Grant Accessibility Permission…", "grantAX"));
    items.back().isHidden = true;
    items.push_back(MenuItem::separator());
    items.push_back(item("Quit Haloric", "terminate:", "q"));
    return {items};
}

} // namespace haloric
