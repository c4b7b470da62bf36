// The log as lines on standard error. Each line is one write, so that lines of several threads, or of several
// processes that share the stream, do not mix. A line that cannot be written is lost.
#pragma once

#include "platform/Log.h"

namespace haloric {

class StandardErrorLog final : public Log {
public:
    static constexpr int kStandardError = 2;

    explicit StandardErrorLog(int fileDescriptor = kStandardError) : m_fileDescriptor(fileDescriptor) {}

    // May block as long as whatever reads the stream does.
    void line(std::string_view text) override;

private:
    int m_fileDescriptor;
};

} // namespace haloric
