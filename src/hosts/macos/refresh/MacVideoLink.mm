#include "hosts/macos/refresh/MacVideoLink.h"

#include <utility>

namespace haloric {

std::unique_ptr<MacVideoLink> MacVideoLink::make(DisplayID display)
{
    CFOwned<CVDisplayLinkRef> link;
    const auto number = static_cast<CGDirectDisplayID>(display);
    if (CVDisplayLinkCreateWithCGDisplay(number, link.receiver()) != kCVReturnSuccess || !link)
        return nullptr;
    return std::make_unique<MacVideoLink>(std::move(link));
}

MacVideoLink::MacVideoLink(CFOwned<CVDisplayLinkRef> link) : m_link(std::move(link)) {}

MacVideoLink::~MacVideoLink() { stop(); }

bool MacVideoLink::setOutputHandler(OutputHandler handler)
{
    const auto gate = m_gate;
    const auto output =
        ^CVReturn(CVDisplayLinkRef, const CVTimeStamp*, const CVTimeStamp*, CVOptionFlags, CVOptionFlags*) {
          const std::lock_guard guard(gate->lock);
          return gate->open ? handler() : kCVReturnSuccess;
        };
    return CVDisplayLinkSetOutputHandler(m_link.get(), output) == kCVReturnSuccess;
}

bool MacVideoLink::start() { return CVDisplayLinkStart(m_link.get()) == kCVReturnSuccess; }

void MacVideoLink::stop()
{
    CVDisplayLinkStop(m_link.get());
    const std::lock_guard guard(m_gate->lock);
    m_gate->open = false;
}

} // namespace haloric
