// The program on a display: makes the adapters and runs HaloricProgram with them. Main thread.
#pragma once

namespace haloric {

class Log;
class Processes;
class X11Connection;
class InstanceLock;
class LinuxRunLoop;
class TerminationSignals;

// What a start on a display has made already.
struct InstanceStart {
    X11Connection& connection;
    LinuxRunLoop& runLoop;
    TerminationSignals& signals;
    Log& log;
    Processes& processes;
    const InstanceLock* lock; // null: it could not be taken, so later starts do not find this instance
    bool opensSettings;
};

// Runs the program until it is quit; returns its exit code.
int runX11Program(const InstanceStart& start);

} // namespace haloric
