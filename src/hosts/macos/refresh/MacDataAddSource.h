// A dispatch source on the main queue that adds data up.
#pragma once

#include "platform/DisplayLinks.h"

#include <dispatch/dispatch.h>

namespace haloric {

class MacDataAddSource final : public DataAddSource {
public:
    explicit MacDataAddSource(Task handler);
    ~MacDataAddSource() override;
    MacDataAddSource(const MacDataAddSource&) = delete;
    MacDataAddSource& operator=(const MacDataAddSource&) = delete;

    void resume() override;
    void add(std::uint64_t count) override;
    void cancel() override;

private:
    dispatch_source_t m_source;
    bool m_resumed = false;
};

} // namespace haloric
