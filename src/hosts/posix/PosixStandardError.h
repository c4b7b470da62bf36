// Standard error, taken over while a library writes there what the program reports itself.
#pragma once

#include "hosts/posix/PosixDescriptor.h"

#include <string>

namespace haloric {

// Takes what is written to standard error from its construction to its end. If that cannot be done, the text appears on
// standard error as usual. No other thread may write there meanwhile; one exists at a time.
class PosixStandardError {
public:
    PosixStandardError();
    ~PosixStandardError() { end(); }
    PosixStandardError(const PosixStandardError&) = delete;
    PosixStandardError& operator=(const PosixStandardError&) = delete;

    // Gives standard error back. Returns the first line of what was written, without its end; empty the second time.
    std::string end();

private:
    PosixDescriptor m_standardError; // the original one
    PosixDescriptor m_text;
};

} // namespace haloric
