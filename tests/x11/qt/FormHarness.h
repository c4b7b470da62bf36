// The program that shows the Qt interface without the rest of Haloric (program/main.cpp), on a test's desktop.
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
    // Returns when the program is ready. `environment` is added to the session's.
    explicit FormHarness(X11Session& session, const Environment& environment = {});
    ~FormHarness();
    FormHarness(const FormHarness&) = delete;
    FormHarness& operator=(const FormHarness&) = delete;

    ChildProcess& process() { return *m_process; }

    // Sends one line to the program.
    void send(const std::string& line);

    // Waits for a line of the program that starts with `start`, and discards the lines before it. Absent on timeout.
    std::optional<std::string> report(const std::string& start);
    [[nodiscard]] bool reports(const std::string& start) { return report(start).has_value(); }

    // Whether such a line has arrived since the last call of report(), after the program has handled all input so far.
    bool hasReported(const std::string& start);

    // Waits until a widget with that name is visible. Returns its rectangle on the root window; empty on timeout.
    ScreenRect place(const std::string& name);
    bool isVisible(const std::string& name);
    std::string described(const std::string& name); // for assistive technology: name, description
    std::string toolTip(const std::string& item);   // of an item of an open menu
    std::string dialogColor();                      // in the open colour dialog, such as "#336699"
    std::string labels(const std::string& title);   // texts of the window with that title, separated by bars

    // Waits until the program sees an available screen area of that size, such as "1920x1080".
    [[nodiscard]] bool waitForAvailable(const std::string& size);
    [[nodiscard]] bool click(const std::string& name, std::uint8_t button = XCB_BUTTON_INDEX_1);
    void press(std::uint32_t keySymbol);

    // Shows the form and waits until it has the keyboard focus.
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
    std::size_t m_read = 0;            // length of the output read so far
    std::deque<std::string> m_answers; // to ask()
    std::deque<std::string> m_reports; // all other lines
};

} // namespace haloric
