#include "x11/qt/program/HarnessProgram.h"

#include "drawing/Canvas.h"
#include "x11/qt/program/WidgetFinder.h"

#include <algorithm>
#include <iostream>
#include <sstream>

#include <QApplication>
#include <QColorDialog>
#include <QScreen>
#include <QWidget>

#include <fcntl.h>
#include <unistd.h>

namespace haloric {

namespace {

void report(const std::string& line) { std::cout << line << std::endl; }

Image trayImage()
{
    return DrawnImage{
        .size = {18, 18}, .isTemplate = true, .isFlipped = true, .draw = [](Canvas& canvas, const SystemColors&) {
            canvas.stroke(Path::roundedRect({2, 3, 14, 12}, 2), {0, 0, 0, 1}, 1.6);
            canvas.fill(Path::rect({2, 3, 14, 4}), {0, 0, 0, 1}, FillRule::nonZero);
        }};
}

} // namespace

HarnessProgram::HarnessProgram(const Dependencies& dependencies) : m_dependencies(dependencies)
{
    m_settings.report = report;
    m_settings.changed = [this] {
        if (m_window)
            m_window->setForm(m_settings.form());
    };
    addVerbs();
    addWindowVerbs();
    addQuestions();
}

Subscription HarnessProgram::obey(LinuxRunLoop& runLoop, int descriptor)
{
    fcntl(descriptor, F_SETFL, O_NONBLOCK);
    return runLoop.watch(descriptor, [this, descriptor, &runLoop] {
        char buffer[256];
        for (ssize_t count = 0; (count = read(descriptor, buffer, sizeof buffer)) > 0;)
            m_unread.append(buffer, static_cast<std::size_t>(count));
        for (auto end = m_unread.find('\n'); end != std::string::npos; end = m_unread.find('\n')) {
            runLoop.post([this, line = m_unread.substr(0, end)] { obey(line); });
            m_unread.erase(0, end + 1);
        }
    });
}

void HarnessProgram::obey(const std::string& line)
{
    const auto blank = std::min(line.find(' '), line.size());
    const auto verb = m_verbs.find(line.substr(0, blank));
    if (verb == m_verbs.end())
        report("unknown verb: " + line);
    else
        verb->second(line.substr(std::min(blank + 1, line.size())));
}

void HarnessProgram::menuNeedsUpdate() { report("menu needs update"); }

MenuItem& HarnessProgram::itemCalled(const std::string& title)
{
    return *std::ranges::find(m_menu.items, title, &MenuItem::title);
}

FormWindow& HarnessProgram::window()
{
    if (!m_window) {
        const FormWindowConfiguration configuration{"Haloric Settings", 7, false, {440, 560}};
        m_window = m_dependencies.formWindows.make(configuration, m_settings.form());
    }
    return *m_window;
}

void HarnessProgram::addVerbs()
{
    m_verbs["tray"] = [this](const std::string&) {
        m_menu = m_settings.menu();
        m_item = m_dependencies.statusItems.make(StatusItems::kSquareLength);
        m_item->setImage(trayImage());
        m_item->setToolTip("Haloric");
        m_item->setMenu(m_menu, *this);
    };
    m_verbs["check"] = [this](const std::string& title) {
        itemCalled(title).isOn = !itemCalled(title).isOn;
        m_item->menuItemsChanged();
    };
    m_verbs["reveal"] = [this](const std::string& title) {
        itemCalled(title).isHidden = false;
        m_item->menuItemsChanged();
    };
    m_verbs["alert"] = [this](const std::string&) {
        const auto answer = m_dependencies.alerts.runModal(
            {.messageText = "Haloric needs Accessibility access",
             .informativeText = "Haloric reads the position of the active window so it can draw the highlight around "
                                "it. It never reads window contents or keystrokes.\n\nClick Open System Settings, then "
                                "turn on Haloric in the Accessibility list.",
             .style = AlertStyle::informational,
             .buttons = {"Open System Settings", "Later"}});
        report("answer " + std::to_string(answer));
    };
    m_verbs["error"] = [this](const std::string&) {
        m_dependencies.alerts.runModalError({.domain = "files",
                                             .code = 13,
                                             .localizedDescription = "The entry could not be written.",
                                             .localizedRecoverySuggestion = "Look at the folder's permissions."});
        report("error seen");
    };
    m_verbs["about"] = [this](const std::string& build) {
        m_dependencies.panels.orderFrontStandardAboutPanel(
            {"Haloric", "dev", build, "Makes the focused window unmistakable.", 11});
    };
    m_verbs["choose"] = [this](const std::string&) {
        const auto path =
            m_dependencies.panels.runModalOpenPanel({ContentType::applicationBundle, "/Applications", "Add"});
        report("chosen " + path.value_or("nothing"));
    };
}

void HarnessProgram::addWindowVerbs()
{
    m_verbs["show"] = [this](const std::string&) { window().makeKeyAndOrderFront(); };
    m_verbs["center"] = [this](const std::string&) { window().center(); };
    m_verbs["width"] = [this](const std::string& value) {
        m_settings.width = std::stod(value);
        m_settings.changed();
    };
    m_verbs["scope"] = [this](const std::string& value) {
        m_settings.scope = std::stoul(value);
        m_settings.changed();
    };
    m_verbs["close"] = [](const std::string&) {
        for (QWidget* each : QApplication::topLevelWidgets())
            if (each->windowTitle() == "Haloric Settings")
                each->close();
    };
    m_verbs["color"] = [this](const std::string& value) {
        std::istringstream(value) >> m_settings.color.red >> m_settings.color.green >> m_settings.color.blue;
        m_settings.changed();
    };
    m_verbs["notice"] = [this](const std::string& text) {
        m_settings.notice = text;
        m_settings.changed();
    };
    m_verbs["well"] = [this](const std::string& value) {
        m_settings.isWellEnabled = value == "on";
        m_settings.changed();
    };
}

void HarnessProgram::addQuestions()
{
    m_verbs["where"] = [](const std::string& name) {
        if (const auto place = WidgetFinder::find(name)) {
            std::cout << "= " << place->x() << " " << place->y() << " " << place->width() << " " << place->height()
                      << std::endl;
        } else {
            report("= nowhere");
        }
    };
    m_verbs["focus"] = [](const std::string&) { report("= " + WidgetFinder::focused()); };
    m_verbs["tooltip"] = [](const std::string& name) { report("= " + WidgetFinder::toolTip(name)); };
    m_verbs["labels"] = [](const std::string& title) { report("= " + WidgetFinder::labels(title)); };
    m_verbs["chosen"] = [](const std::string&) {
        for (QWidget* each : QApplication::topLevelWidgets())
            if (const auto* dialog = qobject_cast<QColorDialog*>(each); dialog && dialog->isVisible())
                return report("= " + dialog->currentColor().name().toStdString());
        report("= ");
    };
    m_verbs["available"] = [](const std::string&) {
        const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
        report("= " + std::to_string(area.width()) + "x" + std::to_string(area.height()));
    };
    m_verbs["describe"] = [](const std::string& name) { report("= " + WidgetFinder::described(name)); };
}

} // namespace haloric
