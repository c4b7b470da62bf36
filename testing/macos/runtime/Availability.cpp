#include "runtime/Availability.h"

#include <cstdlib>
#include <cstring>

extern "C" const char* substitute_available(const char* question) // "macOS 14.0, *"
{
    const char* version = std::getenv("SUBSTITUTE_MACOS_VERSION");
    const char* asked = std::strchr(question, ' ');
    return std::atof(version ? version : "15") >= std::atof(asked ? asked : "0") ? question : nullptr;
}
