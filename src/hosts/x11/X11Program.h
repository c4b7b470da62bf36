// The program on a display: makes the adapters and runs HaloricProgram with them. Main thread.
#pragma once

#include "hosts/posix/PosixDescriptor.h"

#include <vector>

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
    std::vector<PosixDescriptor>& waitingForTheEnd; // gets the sockets of peers that wait for the end of the program
};

// Runs the program until it is quit; returns its exit code.
int runX11Program(const InstanceStart& start);

} // namespace haloric
