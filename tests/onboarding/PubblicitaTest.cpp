#include "Configuration.h"
#include "PubblicitaNib.h"
#include "PubblicitaView.h"
#include "ScreenReader.h"
#include "ScreenTest.h"
#include "UINib.h"
#include "UIViewController.h"

namespace velmorath {

namespace {

using Lines = std::vector<std::string>;

class PubblicitaTest : public ScreenTest {
protected:
    PubblicitaTest()
    {
        enterPubblicitaNib();
        start();
    }

    Lines opened() { return host.effects().openedAddresses(); }
    static std::string page(const std::string& scheme, std::string_view identifier)
    {
        return scheme + "://" + std::string(configuration::storeHost) + "/app/id" + std::string(identifier);
    }
};

} // namespace

TEST_F(PubblicitaTest, SpeaksTheUsersLanguage)
{
    const std::string others = "Check out our other FREE apps:";
    const struct {
        std::string language, code, line, header;
    } cases[] = {
        {"it-IT", "it", "it", "Guarda le nostre altre app GRATIS :"},
        {"fr-CA", "fr", "fr", "Découvrez nos autres applications GRATUITES :"},
        {"es-MX", "es", "es", "Mira nuestras otras aplicaciones GRATUITAS :"},
        {"pt-BR", "pt", "pt", "Confira nossos outros aplicativos GRATUITOS :"},
        {"de", "de", "de", "Schauen Sie sich auch unsere anderen KOSTENLOSEN Apps an :"},
        {"ja-JP", "ja", "ja", "私たちの他の無料アプリをチェックしてください："},
        {"en-GB", "en", "Inglese e altr lingue", others},
        {"zh-Hans", "zh", "Inglese e altr lingue", others},
        {"x", "x", "Inglese e altr lingue", others},
    };
    for (const auto& expected : cases) {
        host.locale().setPreferredLanguages({expected.language, "it"});
        const auto banner = std::make_shared<PubblicitaView>(CGRectMake(0, 0, 320, 128));
        EXPECT_EQ(takeLines(), (Lines{"iniziali : " + expected.code, expected.line}));
        EXPECT_EQ(banner->labeltestoPubblicitario->text(), expected.header);
    }
}

TEST_F(PubblicitaTest, AnIconOpensItsApplicationsPage)
{
    const auto banner = add<PubblicitaView>(CGRectMake(0, 500, 375, 128));
    host.advance(0.1);
    takeLines();
    tap(banner->convertToWindow(banner->iconaApp1.lock()->center()));
    tap(banner->convertToWindow(banner->iconaApp2.lock()->center()));
    banner->iconaCliccata(UIButton());
    EXPECT_EQ(opened(),
        (Lines{page("itms-apps", configuration::appId1), page("itms-apps", configuration::appId2),
            page("itms-apps", configuration::appId2)}));
    EXPECT_EQ(takeLines(), Lines(3, "iconaCliccata"));

    host.effects().refuseScheme("itms-apps");
    tap(banner->convertToWindow(banner->iconaApp1.lock()->center()));
    EXPECT_EQ(opened().back(), page("https", configuration::appId1)) << "no store: the page on the web";
}

TEST_F(PubblicitaTest, TheContentFollowsTheBannersSize)
{
    const auto banner = add<PubblicitaView>(CGRectMake(0, 0, 320, 128));
    const auto drawing = host.draw();
    int pictures = 0;
    for (const DrawingCommand& command : drawing.commands())
        pictures += command.kind == DrawingCommand::Kind::image;
    EXPECT_EQ(pictures, 2);

    banner->setFrame(CGRectMake(0, 0, 600, 128));
    EXPECT_EQ(banner->view->frame(), banner->bounds());
    const CGFloat middle = (banner->iconaApp1.lock()->center().x + banner->iconaApp2.lock()->center().x) / 2;
    EXPECT_NEAR(middle, 300, 1e-9);
    EXPECT_NEAR(banner->labeltestoPubblicitario->center().x, 300, 1e-9);
}

TEST_F(PubblicitaTest, IsReadAndPressedWithoutALook)
{
    host.locale().setPreferredLanguages({"en"});
    const auto banner = add<PubblicitaView>(CGRectMake(0, 0, 320, 128));
    ScreenReader reader(host);
    EXPECT_EQ(reader.everything(),
        (Lines{"text Check out our other FREE apps:", "button Hourglass", "button Diary"}));
    EXPECT_TRUE(reader.press("Diary"));
    EXPECT_EQ(opened(), (Lines{page("itms-apps", configuration::appId2)}));
}

TEST_F(PubblicitaTest, ABrokenInterfaceFileOrNoLanguageIsFatal)
{
    const auto makeBanner = [] { PubblicitaView banner({}); };
    host.locale().setPreferredLanguages({});
    EXPECT_DEATH(makeBanner(), "prefers no language");
    host.locale().setPreferredLanguages({"en"});
    UINib::enter("PubblicitaView", [](Object&) { return UINib::Objects{}; });
    EXPECT_DEATH(makeBanner(), "does not begin with a view");
    UINib::enter(
        "PubblicitaView", [](Object&) { return UINib::Objects{std::make_shared<UIViewController>()}; });
    EXPECT_DEATH(makeBanner(), "does not begin with a view");
    UINib::enter("PubblicitaView", [](Object&) { return UINib::Objects{std::make_shared<UIView>()}; });
    EXPECT_DEATH(makeBanner(), "header is not connected");
    EXPECT_DEATH(UINib::named("NoSuchFile"), "no interface file named NoSuchFile");
    enterPubblicitaNib();
}

} // namespace velmorath
