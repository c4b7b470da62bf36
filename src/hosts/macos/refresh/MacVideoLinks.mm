#include "hosts/macos/refresh/MacVideoLinks.h"

#include "hosts/macos/base/CFOwned.h"
#include "hosts/macos/base/OwnPool.h"

#import <CoreVideo/CoreVideo.h>

#include <mutex>
#include <utility>

#include <dispatch/dispatch.h>

namespace haloric {
namespace {

class MacVideoLink final : public VideoDisplayLink {
public:
    explicit MacVideoLink(CFOwned<CVDisplayLinkRef> link) : m_link(std::move(link)) {}
    ~MacVideoLink() override { stopLink(); }
    MacVideoLink(const MacVideoLink&) = delete;
    MacVideoLink& operator=(const MacVideoLink&) = delete;

    bool setOutputHandler(OutputHandler handler) override
    {
        const auto gate = m_gate;
        const auto output =
            ^CVReturn(CVDisplayLinkRef, const CVTimeStamp*, const CVTimeStamp*, CVOptionFlags, CVOptionFlags*) {
              const std::lock_guard guard(gate->lock);
              return gate->open ? handler() : kCVReturnSuccess;
            };
        return CVDisplayLinkSetOutputHandler(m_link.get(), output) == kCVReturnSuccess;
    }

    bool start() override { return CVDisplayLinkStart(m_link.get()) == kCVReturnSuccess; }
    void stop() override { stopLink(); }

private:
    // Shared with the link's thread, so that no frame is under way once `stop` has returned, whatever the system does.
    struct Gate {
        std::mutex lock;
        bool open = true;
    };

    void stopLink()
    {
        CVDisplayLinkStop(m_link.get());
        const std::lock_guard guard(m_gate->lock);
        m_gate->open = false;
    }

    CFOwned<CVDisplayLinkRef> m_link;
    std::shared_ptr<Gate> m_gate = std::make_shared<Gate>();
};

class MacDataAddSource final : public DataAddSource {
public:
    explicit MacDataAddSource(Task handler)
        : m_source(dispatch_source_create(DISPATCH_SOURCE_TYPE_DATA_ADD, 0, 0, dispatch_get_main_queue()))
    {
        dispatch_source_set_event_handler(m_source, ^{
          const Task running = handler; // it may cancel the source, which releases this block
          withOwnPool(running);
        });
    }

    ~MacDataAddSource() override
    {
        dispatch_source_cancel(m_source);
        resumeOnce(); // the system aborts a program that releases a source which was never resumed
    }
    MacDataAddSource(const MacDataAddSource&) = delete;
    MacDataAddSource& operator=(const MacDataAddSource&) = delete;

    void resume() override { resumeOnce(); }
    void add(std::uint64_t count) override { dispatch_source_merge_data(m_source, count); }
    void cancel() override { dispatch_source_cancel(m_source); }

private:
    void resumeOnce()
    {
        if (!std::exchange(m_resumed, true))
            dispatch_resume(m_source);
    }

    dispatch_source_t m_source;
    bool m_resumed = false;
};

} // namespace

std::unique_ptr<VideoDisplayLink> MacVideoLinks::makeVideoLink(DisplayID display)
{
    CFOwned<CVDisplayLinkRef> link;
    const auto number = static_cast<CGDirectDisplayID>(display);
    if (CVDisplayLinkCreateWithCGDisplay(number, link.receiver()) != kCVReturnSuccess || !link)
        return nullptr;
    return std::make_unique<MacVideoLink>(std::move(link));
}

std::shared_ptr<DataAddSource> MacVideoLinks::makeDataAddSource(Task handler)
{
    return std::make_shared<MacDataAddSource>(std::move(handler));
}

} // namespace haloric
