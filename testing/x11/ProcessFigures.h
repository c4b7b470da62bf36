// The kernel's counters of a process: processor time, wake-ups, memory and descriptors.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <sys/types.h>

namespace haloric {

struct ProcessFigures {
    double processorSeconds = 0;          // of all threads, from schedstat (nanoseconds)
    std::uint64_t voluntarySwitches = 0;  // of all threads; each is one wake-up
    std::uint64_t mainThreadSwitches = 0; // of the main thread
    double proportionalMegabytes = 0;     // memory (PSS): shared pages are divided by the number of their users
    std::size_t descriptors = 0;          // open files, sockets and the like

    static ProcessFigures of(pid_t process)
    {
        ProcessFigures figures;
        const std::filesystem::path folder = "/proc/" + std::to_string(process);
        for (const auto& thread : std::filesystem::directory_iterator(folder / "task")) {
            std::uint64_t nanoseconds = 0;
            std::ifstream(thread.path() / "schedstat") >> nanoseconds;
            figures.processorSeconds += static_cast<double>(nanoseconds) * 1e-9;
            const auto switches = number(thread.path() / "status", "voluntary_ctxt_switches:");
            figures.voluntarySwitches += switches;
            if (thread.path().filename() == folder.filename())
                figures.mainThreadSwitches = switches;
        }
        figures.proportionalMegabytes = static_cast<double>(number(folder / "smaps_rollup", "Pss:")) / 1024;
        figures.descriptors = static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(folder / "fd"), std::filesystem::directory_iterator()));
        return figures;
    }

private:
    // The number after a key at the start of a line; 0 without that key.
    static std::uint64_t number(const std::filesystem::path& file, const std::string& key)
    {
        std::ifstream stream(file);
        for (std::string line; std::getline(stream, line);) {
            if (line.starts_with(key))
                return std::stoull(line.substr(key.size()));
        }
        return 0;
    }
};

} // namespace haloric
