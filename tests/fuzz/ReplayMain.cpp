// The main program of a fuzz target in builds without a fuzzer: runs the target on each file that is named, or that
// lies in a folder that is named. Fails if there is no file.
#include "fuzz/Fuzzing.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

bool replay(const fs::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (!stream && bytes.empty()) {
        std::cerr << path << " cannot be read\n";
        return false;
    }
    std::cout << path.string() << std::endl; // before the run, so that a crash is below the name of its input
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return true;
}

} // namespace

int main(int count, char** arguments)
{
    int replayed = 0;
    for (int index = 1; index < count; ++index) {
        if (!fs::is_directory(arguments[index])) {
            replayed += replay(arguments[index]) ? 1 : 0;
            continue;
        }
        for (const auto& entry : fs::directory_iterator(arguments[index]))
            replayed += replay(entry.path()) ? 1 : 0;
    }
    std::cout << replayed << " inputs\n";
    return replayed > 0 ? 0 : 1;
}
