// What the process does when the X server has gone: it says so once, and ends with exit code 1 even where a library
// crashes on its dead connection. Qt does, above all while it starts. Main thread.
#pragma once

namespace haloric {

class X11DisplayLoss {
public:
    static constexpr int kExitCode = 1;

    // `descriptor` is that of a connection to the server and stays open for this object's life. One exists at a time.
    explicit X11DisplayLoss(int descriptor);
    ~X11DisplayLoss();
    X11DisplayLoss(const X11DisplayLoss&) = delete;
    X11DisplayLoss& operator=(const X11DisplayLoss&) = delete;

    // Writes the line to standard error, the first time.
    static void report();
};

} // namespace haloric
