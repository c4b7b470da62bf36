// Qt, set up as this program needs it: on X11 alone, with a loop that waits in poll(2), without session management,
// alive without windows. One exists; made before other threads, after the display is known to answer. Main thread.
#pragma once

#include "foundation/Task.h"

#include <memory>

class QApplication;

namespace haloric {

class QtApplication {
public:
    // How windows and desktop files name the program.
    static constexpr const char* kIdentifier = "com.kestrow.haloric";

    // `displayLost` is called when Qt finds the X server gone. Qt ends the process right after that, so the process
    // ends with exit code 1 when the call returns.
    explicit QtApplication(Task displayLost);
    ~QtApplication();
    QtApplication(const QtApplication&) = delete;
    QtApplication& operator=(const QtApplication&) = delete;

private:
    std::unique_ptr<QApplication> m_application;
};

} // namespace haloric
