#include "hosts/x11/refresh/X11DataAddSource.h"

namespace haloric {

void X11DataAddSource::resume()
{
    m_resumed = true;
    if (m_count > 0) // what came before waits until now
        schedule();
}

void X11DataAddSource::add(std::uint64_t count)
{
    if (count > 0 && m_count.fetch_add(count) == 0 && m_resumed)
        schedule();
}

void X11DataAddSource::cancel() { m_handler = nullptr; }

void X11DataAddSource::schedule()
{
    m_runLoop.post([self = shared_from_this()] { self->deliver(); });
}

void X11DataAddSource::deliver()
{
    if (m_count.exchange(0) == 0 || !m_handler)
        return;
    const Task handler = m_handler; // it may cancel itself while it runs
    handler();
}

} // namespace haloric
