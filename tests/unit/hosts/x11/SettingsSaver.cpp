// Saves numbered records to the folder of its first argument, from the number of its second on, and acknowledges
// each on standard output, until it is killed.
#include "SettingsSaver.h"

#include "hosts/x11/X11UserDefaults.h"
#include "settings/SettingsStore.h"

#include <cstdlib>

#include <unistd.h>

int main(int count, char** arguments)
{
    if (count != 3)
        return 2;
    haloric::X11UserDefaults defaults(arguments[1]);
    haloric::SettingsStore store(defaults);
    for (int number = std::atoi(arguments[2]);; ++number) {
        store.setSettings(haloric::numberedSettings(number));
        const char saved = 's';
        if (write(STDOUT_FILENO, &saved, 1) != 1)
            return 1;
    }
}
