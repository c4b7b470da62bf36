// The program on a display: its adapters, and the entry sequence that they are handed to. Main thread.
#pragma once

namespace haloric {

class Log;
class Processes;
class X11Connection;
class InstanceLock;
class LinuxRunLoop;
class TerminationSignals;

// What a start on a display brings along.
struct InstanceStart {
    X11Connection& connection;
    LinuxRunLoop& runLoop;
    TerminationSignals& signals;
    Log& log;
    Processes& processes;
    const InstanceLock* seat; // null: none could be taken, so later starts do not find this one
    bool opensSettings;
};

// Runs the program until it is quit; gives its exit code.
int runX11Program(const InstanceStart& start);

} // namespace haloric
