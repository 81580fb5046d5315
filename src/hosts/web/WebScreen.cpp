#include "WebScreen.h"
#include "Page.h"
#include "WebContext.h"
#include "WebImage.h"
#include <algorithm>

namespace velmorath {

CGSize WebScreen::size() const
{
    return {std::max(1.0, pageWidth()), std::max(1.0, pageHeight())};
}

void WebScreen::requestFrame()
{
    pageRequestFrame();
}

bool WebScreen::reducesMotion() const
{
    return pageReducesMotion();
}

CGTextMetrics WebScreen::measure(std::string_view utf8, const CGFont& font, CGFloat wrapWidth)
{
    double result[3];
    pageMeasure(utf8.data(), utf8.size(), font.family.data(), font.family.size(), font.size, font.bold,
        std::max(0.0, wrapWidth), result);
    return {{result[0], result[1]}, result[2] != 0};
}

std::shared_ptr<CGImage> WebScreen::decodeImage(std::string_view bytes)
{
    double size[2];
    const int number = pageDecodeImage(bytes.data(), bytes.size(), size);
    return number > 0 ? std::make_shared<WebImage>(number, CGSize{size[0], size[1]}) : nullptr;
}

void WebScreen::makeFrame(HostClient& client, bool everything)
{
    const CGRect damage = client.prepareFrame();
    const CGRect area = everything ? CGRect{{0, 0}, size()} : damage;
    if (area.isEmpty())
        return;
    m_commands.clear();
    {
        WebContext context(m_commands, pageScale(), area);
        client.draw(context, area);
    }
    pagePaint(m_commands.words().data(), m_commands.words().size());
}

} // namespace velmorath
