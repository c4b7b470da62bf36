// haloric-sim: Haloric on a simulated desktop.
#include "hosts/sim/program/SimProgram.h"

#include <iostream>

int main(int argc, char** argv)
{
    std::string problem;
    const auto options =
        haloric::SimOptions::parse(std::span<const char* const>(argv + 1, static_cast<std::size_t>(argc - 1)), problem);
    if (!options) {
        std::cerr << "haloric-sim: " << problem << "\n\n" << haloric::SimOptions::helpText();
        return haloric::SimProgram::kWrongUse;
    }
    return haloric::SimProgram(*options).run();
}
