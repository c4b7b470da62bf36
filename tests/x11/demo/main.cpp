// haloric-demo [FOLDER]: walks through what the program does and writes pictures to FOLDER (./pictures).
#include "x11/demo/DemoWalk.h"

#include <cstdio>
#include <exception>

int main(int argumentCount, char** arguments)
{
    const std::filesystem::path folder = std::filesystem::absolute(argumentCount > 1 ? arguments[1] : "pictures");
    try {
        haloric::DemoWalk(folder).run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "haloric-demo: %s\n", error.what());
        return 1;
    }
    std::printf("The pictures are in %s\n", folder.c_str());
    return 0;
}
