#include "PubblicitaView.h"
#include "FatalError.h"
#include "Host.h"
#include "Print.h"
#include "UIApplication.h"
#include "UINib.h"
#include <algorithm>

namespace velmorath {

namespace {

struct Header {
    std::string_view language;
    std::string_view text;
};

constexpr Header headers[] = {
    {"it", "Guarda le nostre altre app GRATIS :"},
    {"fr", "Découvrez nos autres applications GRATUITES :"},
    {"es", "Mira nuestras otras aplicaciones GRATUITAS :"},
    {"pt", "Confira nossos outros aplicativos GRATUITOS :"},
    {"de", "Schauen Sie sich auch unsere anderen KOSTENLOSEN Apps an :"},
    {"ja", "私たちの他の無料アプリをチェックしてください："},
};
constexpr std::string_view headerOfAllOthers = "Check out our other FREE apps:";

std::string languageCode()
{
    const std::vector<std::string> languages = Host::current().locale().preferredLanguages();
    if (languages.empty())
        fatalError("The user prefers no language");
    return languages.front().substr(0, 2);
}

} // namespace

PubblicitaView::PubblicitaView(const CGRect& frame)
    : UIView(frame)
{
    loadContent();
    setHeader();
}

void PubblicitaView::loadContent()
{
    const UINib::Objects objects = UINib::named("PubblicitaView").instantiate(*this);
    view = objects.empty() ? nullptr : std::dynamic_pointer_cast<UIView>(objects.front());
    if (!view)
        fatalError("The banner's interface file does not begin with a view");
    view->setFrame(bounds());
    view->setAutoresizingMask(UIViewAutoresizing::flexibleWidth | UIViewAutoresizing::flexibleHeight);
    addSubview(view);
}

void PubblicitaView::setHeader()
{
    const std::string code = languageCode();
    print("iniziali : " + code);
    const auto* header = std::find_if(std::begin(headers), std::end(headers),
        [&](const Header& candidate) { return candidate.language == code; });
    const bool isFound = header != std::end(headers);
    print(isFound ? code : "Inglese e altr lingue");
    if (!labeltestoPubblicitario)
        fatalError("The banner's header is not connected");
    labeltestoPubblicitario->setText(std::string(isFound ? header->text : headerOfAllOthers));
}

void PubblicitaView::iconaCliccata(const UIView& sender)
{
    print("iconaCliccata");
    const std::string& identifier = sender.tag() == 1 ? appId1 : appId2;
    const auto url =
        URL::parse("itms-apps://" + std::string(configuration::storeHost) + "/app/id" + identifier);
    if (url)
        UIApplication::shared().openURL(*url);
}

} // namespace velmorath
