// Reads whole files: logs, stored records, entries.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace haloric {

// The bytes of the file; empty if it cannot be opened.
inline std::string contentsOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace haloric
