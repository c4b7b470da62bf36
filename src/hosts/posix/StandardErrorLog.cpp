#include "hosts/posix/StandardErrorLog.h"

#include <cerrno>
#include <string>

#include <unistd.h>

namespace haloric {

void StandardErrorLog::line(std::string_view text)
{
    std::string whole;
    whole.reserve(text.size() + 1);
    whole.append(text).push_back('\n');
    std::string_view rest = whole;
    while (!rest.empty()) { // once, unless a signal or a full pipe cuts the write short
        const ssize_t written = write(m_fileDescriptor, rest.data(), rest.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return;
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
}

} // namespace haloric
