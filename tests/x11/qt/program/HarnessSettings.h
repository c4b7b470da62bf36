// A form with one control of each kind, and a menu. It keeps the values and reports the user's actions.
#pragma once

#include "platform/FormModel.h"
#include "platform/MenuModel.h"

#include <functional>
#include <string>
#include <vector>

namespace haloric {

class HarnessSettings {
public:
    std::function<void(const std::string&)> report; // one line
    std::function<void()> changed;                  // a value of the form has changed

    FormModel form();
    MenuModel menu();

    bool isOn = false;
    bool isWellEnabled = true;
    double width = 3;
    Color color{0.04, 0.52, 1, 1};
    std::size_t scope = 0;
    std::string notice;
    std::vector<std::string> applications{"openbox", "python3.11"};

private:
    FormSection controls();
    FormSection applicationList();
    void note(const std::string& line);
};

} // namespace haloric
