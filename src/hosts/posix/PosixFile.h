// Small files of the user's, read and replaced as a whole. Each call may block on the disk. Any thread.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace haloric::PosixFile {

// Absent for what cannot be read, is no ordinary file, or is larger than `maximumSize` bytes. Never waits for a pipe.
std::optional<std::string> read(const std::filesystem::path& path, std::size_t maximumSize);

// Makes a folder and those above it, for this user alone. The error number; 0 when it is there.
int makeFolders(const std::filesystem::path& folder);

// Writes the bytes (mode 0600) to `temporary`, a name in the same folder, which then takes the place of `path`: after a
// crash the old or the new file is there. The error number; 0 on success, and nothing is left beside it.
int replace(const std::filesystem::path& path, const std::filesystem::path& temporary, std::string_view bytes);

} // namespace haloric::PosixFile
