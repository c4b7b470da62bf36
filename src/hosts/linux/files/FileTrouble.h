// Why a file could not be written, in words for the user. Pure.
#pragma once

#include "platform/PlatformError.h"

#include <string>

namespace haloric {

// `number` is the error number of the call that failed, `folder` the folder of the file. The description is one
// sentence; the suggestion may be empty.
PlatformError fileTrouble(int number, const std::string& folder);

// The user has no folder for configuration files.
PlatformError noUserFolder();

} // namespace haloric
