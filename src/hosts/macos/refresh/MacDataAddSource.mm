#include "hosts/macos/refresh/MacDataAddSource.h"

#include "hosts/macos/base/OwnPool.h"

#include <utility>

namespace haloric {

MacDataAddSource::MacDataAddSource(Task handler)
    : m_source(dispatch_source_create(DISPATCH_SOURCE_TYPE_DATA_ADD, 0, 0, dispatch_get_main_queue()))
{
    dispatch_source_set_event_handler(m_source, ^{
      const Task running = handler; // it may cancel the source, which lets go of this block
      withOwnPool(running);
    });
}

MacDataAddSource::~MacDataAddSource()
{
    cancel();
    resume(); // the system stops a program that gives back a source which never ran
}

void MacDataAddSource::resume()
{
    if (std::exchange(m_resumed, true))
        return;
    dispatch_resume(m_source);
}

void MacDataAddSource::add(std::uint64_t count) { dispatch_source_merge_data(m_source, count); }

void MacDataAddSource::cancel() { dispatch_source_cancel(m_source); }

} // namespace haloric
