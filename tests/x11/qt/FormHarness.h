// The program that shows the user interface with a toy behind it (program/main.cpp), on a test's desktop.
#pragma once

#include "testing/x11/ChildProcess.h"
#include "testing/x11/Key.h"
#include "testing/x11/X11Session.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace haloric {

class FormHarness {
public:
    // Returns when the program runs. `environment` is added to the session's.
    explicit FormHarness(X11Session& session, const Environment& environment = {});
    ~FormHarness();
    FormHarness(const FormHarness&) = delete;
    FormHarness& operator=(const FormHarness&) = delete;

    ChildProcess& process() { return *m_process; }

    // One line for the program.
    void tell(const std::string& line);

    // Waits for a line that starts with `start`, and passes over what stands before it. None when the patience ends.
    std::optional<std::string> hear(const std::string& start);
    [[nodiscard]] bool hears(const std::string& start) { return hear(start).has_value(); }

    // Whether the program has said such a line since what was heard last, after everything that has been done to it.
    bool hasSaid(const std::string& start);

    // Waits until a widget with that name is visible; its place on the root. Empty when there is none.
    ScreenRect place(const std::string& name);
    bool isVisible(const std::string& name);
    std::string described(const std::string& name); // to assistive technology: name, description
    std::string toolTip(const std::string& item);   // of an item of an open menu
    std::string labels(const std::string& title);   // the texts in that window, with bars between them

    // Waits until the program knows that so much of the screen is for windows, such as "1920x1080".
    [[nodiscard]] bool waitForAvailable(const std::string& size);
    [[nodiscard]] bool click(const std::string& name, std::uint8_t button = XCB_BUTTON_INDEX_1);
    void press(std::uint32_t keySymbol);

    // Shows the form and waits until it has the keyboard.
    [[nodiscard]] bool showForm();
    std::string focused();
    [[nodiscard]] bool waitForFocus(const std::string& name);
    [[nodiscard]] bool tabTo(const std::string& name);

private:
    std::string ask(const std::string& question);
    void takeIn();

    X11Session& m_session;
    int m_commands = -1;
    std::unique_ptr<ChildProcess> m_process;
    std::size_t m_read = 0;            // so much of the output
    std::deque<std::string> m_answers; // to questions
    std::deque<std::string> m_news;    // anything else
};

} // namespace haloric
