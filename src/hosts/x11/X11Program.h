// The program on a display: its adapters, and the entry sequence that they are handed to. Main thread.
#pragma once

namespace haloric {

class Log;
class Processes;
class X11Connection;
class X11InstanceSeat;
class X11RunLoop;
class X11TerminationSignals;

// What a start on a display brings along.
struct X11Start {
    X11Connection& connection;
    X11RunLoop& runLoop;
    X11TerminationSignals& signals;
    Log& log;
    Processes& processes;
    const X11InstanceSeat* seat; // null: none could be taken, so later starts do not find this one
    bool opensSettings;
};

// Runs the program until it is quit; gives its exit code.
int runX11Program(const X11Start& start);

} // namespace haloric
