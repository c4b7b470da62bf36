// Saves numbered records into the folder of its first argument, starting with the number of its second, and
// acknowledges each on standard output, until it is killed. With a third argument it stops after the first record so
// that its parent can trace it; if tracing is forbidden, it ends with exit code 3.
#include "unit/hosts/linux/files/SettingsSaver.h"

#include "hosts/linux/files/LinuxUserDefaults.h"
#include "settings/SettingsStore.h"

#include <csignal>
#include <cstdlib>

#include <sys/ptrace.h>
#include <unistd.h>

int main(int count, char** arguments)
{
    if (count != 3 && count != 4)
        return 2;
    bool isToStop = count == 4;
    haloric::LinuxUserDefaults defaults(arguments[1]);
    haloric::SettingsStore store(defaults);
    for (int number = std::atoi(arguments[2]);; ++number) {
        store.setSettings(haloric::numberedSettings(number));
        const char saved = 's';
        if (write(STDOUT_FILENO, &saved, 1) != 1)
            return 1;
        if (isToStop && ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            return 3;
        if (isToStop)
            raise(SIGSTOP);
        isToStop = false;
    }
}
