#include "macos/histories/FormUser.h"

#include "hosts/macos/base/MacConversions.h"
#import "hosts/macos/form/MacFormRowView.h"
#import "hosts/macos/form/MacFormView.h"
#include "windows/Windows.h"

#include <algorithm>
#include <optional>

namespace haloric {
namespace {

// A row's place in a form: which of all rows, the buttons below last, counted from 0.
std::optional<std::size_t> placeOf(const FormModel& form, std::string_view id)
{
    std::size_t place = 0;
    for (const FormSection& section : form.sections)
        for (const FormRow& row : section.rows) {
            if (row.id == id)
                return place;
            ++place;
        }
    for (const FormRow& row : form.buttons) {
        if (row.id == id)
            return place;
        ++place;
    }
    return std::nullopt;
}

// The rows beneath a view in the order in which they are shown.
void collectRows(NSView* view, NSMutableArray<MacFormRowView*>* rows)
{
    if ([view isKindOfClass:MacFormRowView.class]) {
        [rows addObject:(MacFormRowView*)view];
        return;
    }
    NSArray<NSView*>* parts =
        [view isKindOfClass:NSStackView.class] ? ((NSStackView*)view).arrangedSubviews : view.subviews;
    for (NSView* part in parts)
        collectRows(part, rows);
}

NSView* controlAt(NSWindow* window, std::size_t place)
{
    NSMutableArray<MacFormRowView*>* rows = [NSMutableArray array];
    collectRows(window.contentView, rows);
    return place < rows.count ? rows[place].control : nil;
}

BOOL sendAction(NSControl* control) { return [control sendAction:control.action to:control.target]; }

bool choose(NSPopUpButton* button, const std::string& title)
{
    NSInteger index = 0;
    const NSInteger first = button.pullsDown ? 1 : 0; // a pull-down button shows its first item as its title
    for (NSMenuItem* item in button.menu.itemArray) {
        if (index >= first && stringFrom(item.title) == title) {
            [button selectItemAtIndex:index];
            return sendAction(button);
        }
        ++index;
    }
    return false;
}

// For each kind of value, how a user sets it. False if the control cannot take it.
struct Use {
    NSControl* control;

    bool operator()(std::monostate) const
    {
        return [control isKindOfClass:NSButton.class] && ![control isKindOfClass:NSPopUpButton.class] &&
               sendAction(control);
    }
    bool operator()(bool on) const
    {
        if (![control isKindOfClass:NSSwitch.class])
            return false;
        ((NSSwitch*)control).state = on ? NSControlStateValueOn : NSControlStateValueOff;
        return sendAction(control);
    }
    bool operator()(double value) const
    {
        if (![control isKindOfClass:NSSlider.class])
            return false;
        control.doubleValue = value;
        return sendAction(control);
    }
    bool operator()(const Color& color) const
    {
        if (![control isKindOfClass:NSColorWell.class])
            return false;
        ((NSColorWell*)control).color = nsColorFrom(color);
        return sendAction(control);
    }
    bool operator()(const std::string& option) const
    {
        return [control isKindOfClass:NSPopUpButton.class] && choose((NSPopUpButton*)control, option);
    }
};

} // namespace

class FormUser::Window final : public FormWindow {
public:
    Window(FormUser& owner, const FormWindowConfiguration& configuration, const FormModel& form)
        : m_owner(owner),
          m_title(nsStringFrom(configuration.title)),
          m_form(form),
          m_window(owner.m_host.make(configuration, form))
    {
        m_owner.m_windows.push_back(this);
    }
    ~Window() override { std::erase(m_owner.m_windows, this); }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    void setForm(const FormModel& form) override
    {
        m_form = form;
        m_window->setForm(form);
    }
    void center() override { m_window->center(); }
    void makeKeyAndOrderFront() override { m_window->makeKeyAndOrderFront(); }
    bool isVisible() const override { return m_window->isVisible(); }

    NSView* control(std::string_view id) const
    {
        const auto place = isVisible() ? placeOf(m_form, id) : std::nullopt;
        if (!place)
            return nil;
        for (NSWindow* window in substitute::windows())
            if ([window.contentView isKindOfClass:MacFormView.class] && [window.title isEqualToString:m_title])
                return controlAt(window, *place);
        return nil;
    }

private:
    FormUser& m_owner;
    NSString* m_title;
    FormModel m_form;
    std::unique_ptr<FormWindow> m_window;
};

std::unique_ptr<FormWindow> FormUser::make(const FormWindowConfiguration& configuration, const FormModel& form)
{
    return std::make_unique<Window>(*this, configuration, form);
}

bool FormUser::change(std::string_view id, const SimFormWindows::Value& value)
{
    for (const Window* window : m_windows) {
        NSView* found = window->control(id);
        if (![found isKindOfClass:NSControl.class])
            continue;
        NSControl* control = (NSControl*)found;
        return control.enabled && std::visit(Use{control}, value);
    }
    return false;
}

} // namespace haloric
