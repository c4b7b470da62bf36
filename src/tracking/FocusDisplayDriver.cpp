#include "tracking/FocusDisplayDriver.h"

#include <utility>

namespace haloric {

FocusDisplayDriver::FocusDisplayDriver(DisplayLinks& displayLinks, VideoLinks* videoLinks, Task tick)
    : m_displayLinks(displayLinks),
      m_videoLinks(videoLinks),
      m_tick(std::make_shared<const Task>(std::move(tick)))
{
}

FocusDisplayDriver::~FocusDisplayDriver() { stop(); }

void FocusDisplayDriver::start(const Screen& screen, DisplayID displayID)
{
    stop();
    if (m_videoLinks)
        startLegacy(*m_videoLinks, displayID);
    else
        startModern(screen);
}

void FocusDisplayDriver::startModern(const Screen& screen)
{
    m_modernLink = m_displayLinks.makeScreenLink(screen, m_anchor.bind(&FocusDisplayDriver::displayTick));
    if (!m_modernLink)
        return;
    const double rate = screen.maximumFramesPerSecond;
    m_modernLink->setPreferredFrameRateRange({rate, rate, rate});
    m_modernLink->addToMainRunLoop();
}

void FocusDisplayDriver::startLegacy(VideoLinks& videoLinks, DisplayID displayID)
{
    auto link = videoLinks.makeVideoLink(displayID);
    if (!link)
        return;
    const auto source = videoLinks.makeDataAddSource(m_anchor.bind(&FocusDisplayDriver::displayTick));
    source->resume();
    const auto countFrame = [source]() -> std::int32_t {
        source->add(1);
        return 0;
    };
    if (!link->setOutputHandler(countFrame) || !link->start()) {
        source->cancel();
        return;
    }
    m_legacyLink = std::move(link);
    m_legacySource = source;
}

void FocusDisplayDriver::stop()
{
    if (m_modernLink)
        m_modernLink->invalidate();
    m_modernLink.reset();
    if (m_legacyLink)
        m_legacyLink->stop();
    m_legacyLink.reset();
    if (m_legacySource)
        m_legacySource->cancel();
    m_legacySource.reset();
}

// Nothing is touched after the tick: it may have destroyed the driver, and with it the calling link.
void FocusDisplayDriver::displayTick() const
{
    const auto tick = m_tick;
    (*tick)();
}

} // namespace haloric
