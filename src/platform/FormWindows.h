// Ordinary windows of the application that show a form. Main thread.
#pragma once

#include "foundation/Geometry.h"
#include "platform/FormModel.h"

#include <cstdint>
#include <memory>
#include <string>

namespace haloric {

// Properties that a window is made with, with the names and numbers of macOS.
struct FormWindowConfiguration {
    std::string title;
    std::uint64_t styleMask = 0; // WindowStyle
    bool isReleasedWhenClosed = true;
    Size contentSize; // points
    friend bool operator==(const FormWindowConfiguration&, const FormWindowConfiguration&) = default;
};

// Destroying it closes the window. Closed by the user, it is hidden and keeps its place.
class FormWindow {
public:
    virtual ~FormWindow() = default;

    // Shows the new form in place of the old one: controls of the same id keep focus, and a drag goes on.
    virtual void setForm(const FormModel& form) = 0;

    virtual void center() = 0;

    // Opens it, also when it is closed or minimised.
    virtual void makeKeyAndOrderFront() = 0;

    // Since it was opened, until it is closed: also while it is minimised or hidden with the application, because it
    // can return from there without the program.
    virtual bool isVisible() const = 0;
};

class FormWindows {
public:
    virtual ~FormWindows() = default;

    // Never null. The window starts ordered out.
    virtual std::unique_ptr<FormWindow> make(const FormWindowConfiguration& configuration, const FormModel& form) = 0;
};

} // namespace haloric
