#include "hosts/sim/form/SimFormWindows.h"

#include "hosts/sim/form/SimOwnWindow.h"

#include <algorithm>
#include <optional>

namespace haloric {

namespace {

// For each kind of control, the task that sets it to `value`; null if the control cannot take that value. The task
// holds a copy of the control's handler, since the form may be replaced while it runs.
struct Change {
    const SimFormWindows::Value& value;

    Task operator()(const FormToggle& toggle) const
    {
        const bool* on = std::get_if<bool>(&value);
        return on && toggle.isEnabled ? Task([set = toggle.set, on = *on] { set(on); }) : nullptr;
    }

    Task operator()(const FormSlider& slider) const
    {
        const double* to = std::get_if<double>(&value);
        if (!to)
            return nullptr;
        return [set = slider.set, to = std::clamp(*to, slider.minimum, slider.maximum)] { set(to); };
    }

    Task operator()(const FormColorWell& well) const
    {
        const Color* color = std::get_if<Color>(&value);
        return color && well.isEnabled ? Task([set = well.set, color = *color] { set(color); }) : nullptr;
    }

    Task operator()(const FormPicker& picker) const
    {
        const auto* option = std::get_if<std::string>(&value);
        const auto found = option ? std::ranges::find(picker.options, *option) : picker.options.end();
        if (found == picker.options.end())
            return nullptr;
        const auto index = static_cast<std::size_t>(found - picker.options.begin());
        return [choose = picker.choose, index] { choose(index); };
    }

    Task operator()(const FormMenu& menu) const
    {
        const auto* title = std::get_if<std::string>(&value);
        const auto items = title ? menu.items() : std::vector<FormMenuItem>();
        const auto found = std::ranges::find(items, title ? *title : std::string(), &FormMenuItem::title);
        return found == items.end() ? nullptr : found->perform;
    }

    Task operator()(const FormListRow& row) const { return isNothing() ? row.remove : nullptr; }
    Task operator()(const FormButton& button) const { return isNothing() ? button.perform : nullptr; }

    bool isNothing() const { return std::holds_alternative<std::monostate>(value); }
};

const FormRow* rowIn(const std::vector<FormRow>& rows, std::string_view id)
{
    const auto found = std::ranges::find(rows, id, &FormRow::id);
    return found == rows.end() ? nullptr : &*found;
}

} // namespace

class SimFormWindows::Window final : public FormWindow {
public:
    Window(SimFormWindows& owner, const FormWindowConfiguration& configuration, const FormModel& form)
        : m_owner(owner),
          m_window(owner.m_desktop, configuration.title,
                   {0, 0, configuration.contentSize.width,
                    configuration.contentSize.height + SimOwnWindow::kTitleBarHeight}),
          m_form(form)
    {
        m_owner.m_windows.push_back(this);
    }

    ~Window() override { std::erase(m_owner.m_windows, this); }

    void setForm(const FormModel& form) override { m_form = form; }

    void center() override { m_window.center(); }

    void makeKeyAndOrderFront() override
    {
        const bool appears = !isVisible();
        m_window.makeKeyAndOrderFront();
        if (!appears)
            return;
        const FormModel form = m_form; // a copy: the tasks may replace it
        for (const FormSection& section : form.sections)
            if (section.onAppear)
                section.onAppear();
    }

    bool isVisible() const override { return m_window.isVisible(); }

    const FormControl* control(std::string_view id) const
    {
        for (const FormSection& section : m_form.sections)
            if (const FormRow* row = rowIn(section.rows, id))
                return &row->control;
        const FormRow* button = rowIn(m_form.buttons, id);
        return button ? &button->control : nullptr;
    }

private:
    SimFormWindows& m_owner;
    SimOwnWindow m_window;
    FormModel m_form;
};

std::unique_ptr<FormWindow> SimFormWindows::make(const FormWindowConfiguration& configuration, const FormModel& form)
{
    return std::make_unique<Window>(*this, configuration, form);
}

const FormControl* SimFormWindows::control(std::string_view id) const
{
    for (const Window* window : m_windows)
        if (const FormControl* found = window->isVisible() ? window->control(id) : nullptr)
            return found;
    return nullptr;
}

bool SimFormWindows::change(std::string_view id, const Value& value)
{
    const FormControl* found = control(id);
    const Task task = found ? std::visit(Change{value}, *found) : nullptr;
    if (!task)
        return false;
    m_desktop.journal.note(SimJournal::Kind::window, "the user changes " + std::string(id));
    task();
    return true;
}

} // namespace haloric
