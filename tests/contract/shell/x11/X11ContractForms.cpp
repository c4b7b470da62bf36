#include "contract/shell/x11/X11ContractForms.h"

#include "testing/x11/Key.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QLabel>
#include <QSlider>

namespace haloric {

namespace {

constexpr int kMostTabs = 30;

// The text of the row's label; otherwise the control's own.
std::string labelOf(const QWidget& control)
{
    for (const QLabel* label : control.parentWidget()->findChildren<QLabel*>())
        if (!label->text().isEmpty())
            return label->text().toStdString();
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return button ? QtUser::plain(button->text()) : std::string();
}

// A colour well describes its colour to assistive technology by its hexadecimal name.
ContractValue describedColor(QWidget& control)
{
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&control);
    const QString name = accessible ? accessible->text(QAccessible::Description) : QString();
    if (!name.startsWith('#'))
        return {};
    const QColor color(name);
    constexpr double kFull = 255;
    return Color{color.red() / kFull, color.green() / kFull, color.blue() / kFull, 1};
}

ContractValue valueOf(QWidget& control)
{
    if (const auto* box = qobject_cast<const QCheckBox*>(&control))
        return box->isChecked();
    if (const auto* slider = qobject_cast<const QSlider*>(&control))
        return double(slider->value() - slider->minimum()) / (slider->maximum() - slider->minimum());
    if (const auto* box = qobject_cast<const QComboBox*>(&control))
        return box->currentText().toStdString();
    return describedColor(control);
}

std::vector<std::string> optionsOf(const QWidget& control)
{
    std::vector<std::string> options;
    if (const auto* box = qobject_cast<const QComboBox*>(&control)) {
        for (int index = 0; index < box->count(); ++index)
            options.push_back(box->itemText(index).toStdString());
    }
    return options;
}

} // namespace

std::optional<ContractControl> X11ContractForms::control(const std::string& id)
{
    QWidget* found = QtUser::widget(id);
    if (!found)
        return std::nullopt;
    return ContractControl{labelOf(*found), found->isEnabled(), valueOf(*found), optionsOf(*found)};
}

bool X11ContractForms::use(const std::string& id, const ContractValue& value)
{
    const auto control = this->control(id);
    const auto* place = std::get_if<double>(&value);
    const auto* option = std::get_if<std::string>(&value);
    const auto isMenuOpen = [] { return QApplication::activePopupWidget() != nullptr; };
    bool isOptionClicked = false;
    if (option)
        m_user.when(isMenuOpen, [&] { isOptionClicked = m_user.click(*option); });
    if (!control || !m_user.click(id, place ? *place : 0.5) || !control->isEnabled)
        return false;
    if (const auto* color = std::get_if<Color>(&value))
        return chooseColor(*color);
    return !option || m_user.waitUntil([&] { return isOptionClicked && !isMenuOpen(); });
}

// By the dialog that the well has opened.
bool X11ContractForms::chooseColor(const Color& color)
{
    const auto dialog = []() -> QColorDialog* {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<QColorDialog*>(window); found && found->isVisible())
                return found;
        return nullptr;
    };
    if (!m_user.waitUntil([&] { return dialog() && dialog()->isActiveWindow(); }))
        return false;
    const auto component = [](double value) { return static_cast<float>(value); };
    dialog()->setCurrentColor(QColor::fromRgbF(component(color.red), component(color.green), component(color.blue)));
    m_user.press(Key::kEscape); // the dialog has no buttons: what is picked holds at once
    return m_user.waitUntil([&] { return !dialog(); });
}

bool X11ContractForms::moveFocusTo(const std::string& id)
{
    if (!m_user.waitUntil([] { return QApplication::focusWidget() != nullptr; }))
        return false;
    for (int tabs = 0; tabs < kMostTabs && focusedControl() != id; ++tabs) {
        const std::string before = focusedControl();
        m_user.press(Key::kTab);
        m_user.waitUntil([&] { return focusedControl() != before; });
    }
    return focusedControl() == id;
}

std::string X11ContractForms::focusedControl()
{
    const QWidget* focused = QApplication::focusWidget();
    return focused ? focused->objectName().toStdString() : std::string();
}

void X11ContractForms::closeWindow()
{
    constexpr std::uint32_t kFromUser = 2;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->isWindow() && dynamic_cast<const FormWindow*>(window))
            m_user.session().observer().sendToRoot(static_cast<xcb_window_t>(window->winId()), "_NET_CLOSE_WINDOW",
                                                   {XCB_CURRENT_TIME, kFromUser});
    }
    m_user.session().observer().synchronize();
}

} // namespace haloric
