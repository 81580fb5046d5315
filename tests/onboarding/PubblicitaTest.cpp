#include "PubblicitaNib.h"
#include "PubblicitaView.h"
#include "ScreenTest.h"
#include "UINib.h"
#include "UIViewController.h"

namespace velmorath {

namespace {

using PubblicitaTest = ScreenTest;

} // namespace

TEST_F(PubblicitaTest, SpeaksTheUsersLanguage)
{
    tellLines();
    for (const std::string language :
        {"it-IT", "fr-CA", "es-MX", "pt-BR", "de", "ja-JP", "en-GB", "zh-Hans", "x"}) {
        host.locale().setPreferredLanguages({language, "it"});
        std::shared_ptr<PubblicitaView> banner;
        then(language, [&] { banner = add<PubblicitaView>(CGRectMake(0, 0, 320, 128)); });
        then(banner->labeltestoPubblicitario->text(), 0);
    }
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

TEST_F(PubblicitaTest, TheHeaderIsAsLargeAsFits)
{
    struct Header : UILabel {
        using UILabel::keptDrawing;
        using UILabel::UILabel;
    };
    for (int width = 150; width < 500; ++width) {
        const auto header = std::make_shared<Header>(CGRectMake(0, 0, width, 36));
        header->setText("Découvrez nos autres applications GRATUITES :");
        header->setFont(UIFont::boldSystemFont(16));
        header->setMinimumScaleFactor(0.5);
        DrawingRecorder drawing;
        header->keptDrawing()(drawing);
        const CGFont font = drawing.commands().front().textStyle.font;
        const CGFloat drawn = host.screen().measure(header->text(), font, 0).size.width;
        EXPECT_TRUE(drawn <= width || font.size == 8) << width;
        EXPECT_TRUE(drawn > width * 0.8 || font.size == 16 || font.size == 8) << width << " is filled";
    }
}

} // namespace velmorath
