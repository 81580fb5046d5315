#include "WebEffects.h"
#include "IncomingBytes.h"
#include "Lines.h"
#include "Page.h"
#include <utility>

namespace velmorath {

void WebEffects::playSound(const std::string& path)
{
    pagePlaySound(path.data(), path.size());
}

void WebEffects::vibrate()
{
    pageVibrate();
}

void WebEffects::announce(const std::string& text)
{
    pageAnnounce(text.data(), text.size());
}

void WebEffects::setBadge(long long number)
{
    pageSetBadge(static_cast<double>(number));
}

bool WebEffects::openAddress(const std::string& address)
{
    return pageOpenAddress(address.data(), address.size());
}

Device WebEffects::device()
{
    std::vector<std::string> texts = splitLines(IncomingBytes::take(pageDevice()));
    texts.resize(4);
    return {std::move(texts[0]), std::move(texts[1]), std::move(texts[2]), std::move(texts[3])};
}

void WebEffects::requestNotificationPermission(std::function<void(bool granted)> answer)
{
    m_answer = std::move(answer);
    pageRequestPermission();
}

void WebEffects::permissionAnswered(bool granted)
{
    if (const auto answer = std::exchange(m_answer, nullptr))
        answer(granted);
}

} // namespace velmorath
