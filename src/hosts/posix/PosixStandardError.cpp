#include "hosts/posix/PosixStandardError.h"

#include <array>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace haloric {

namespace {

// No name leads to it; it goes with its descriptor.
PosixDescriptor unnamedFile()
{
    std::FILE* const stream = std::tmpfile();
    if (!stream)
        return {};
    PosixDescriptor file(fcntl(fileno(stream), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    std::fclose(stream);
    return file;
}

} // namespace

PosixStandardError::PosixStandardError()
    : m_standardError(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)),
      m_text(unnamedFile())
{
    std::fflush(stderr);
    if (m_standardError.isOpen() && m_text.isOpen())
        dup2(m_text.number(), STDERR_FILENO);
}

std::string PosixStandardError::end()
{
    if (!m_standardError.isOpen() || !m_text.isOpen())
        return {};
    std::fflush(stderr);
    dup2(m_standardError.number(), STDERR_FILENO);
    m_standardError = {};
    std::array<char, 1024> text{};
    const ssize_t count = pread(m_text.number(), text.data(), text.size(), 0);
    m_text = {};
    const std::string all(text.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    return all.substr(0, all.find('\n'));
}

} // namespace haloric
