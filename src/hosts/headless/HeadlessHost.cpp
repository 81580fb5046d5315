#include "HeadlessHost.h"
#include <algorithm>

namespace velmorath {

namespace {

constexpr double frameDuration = 1.0 / 60;

}

HeadlessHost::HeadlessHost(std::string resourceDirectory)
    : m_files(std::move(resourceDirectory))
{
    Host::install(*this);
}

HeadlessHost::~HeadlessHost()
{
    quit();
}

int HeadlessHost::run(HostClient& client)
{
    m_client = &client;
    m_framesPrepared = 0;
    m_screen.requestFrame();
    return 0;
}

void HeadlessHost::quit()
{
    if (HostClient* client = std::exchange(m_client, nullptr))
        client->willTerminate();
}

void HeadlessHost::advance(double seconds)
{
    const double end = m_clock.now() + seconds;
    for (;;) {
        const double frameAt = m_screen.isFrameRequested() ? m_clock.now() + frameDuration : end + 1;
        const double wakeAt = std::max(m_clock.nextWakeUp(), m_clock.now());
        if (std::min(frameAt, wakeAt) > end)
            break;
        if (wakeAt <= frameAt) {
            m_clock.moveTo(wakeAt);
            m_clock.wakeAt(std::numeric_limits<double>::infinity());
            m_client->wake();
        } else {
            m_clock.moveTo(frameAt);
            m_screen.takeFrameRequest();
            prepareFrame();
            ++m_framesPrepared;
        }
    }
    m_clock.moveTo(end);
}

void HeadlessHost::prepareFrame()
{
    m_files.answer();
    m_damage = m_damage.united(m_client->prepareFrame());
}

void HeadlessHost::resize(CGSize size)
{
    m_screen.setSize(size);
    m_client->screenChanged();
}

DrawingRecorder HeadlessHost::draw()
{
    prepareFrame();
    DrawingRecorder recorder;
    m_client->draw(recorder, {{0, 0}, m_screen.size()});
    return recorder;
}

} // namespace velmorath
