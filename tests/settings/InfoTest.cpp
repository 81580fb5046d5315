#include "Bundle.h"
#include "Configuration.h"
#include "SettingsTest.h"
#include "UIAlertController.h"
#include "UIStoryboard.h"

namespace velmorath {
namespace {

class InfoTest : public SettingsTest {
protected:
    void openWith(const std::string& key, const std::string& value)
    {
        start({"One"});
        set(key, value);
        openInformation();
        takeLines();
        takeFelt();
    }
};

TEST_F(InfoTest, ShowsItsRowsAndCloses)
{
    start({"One"});
    openInformation();
    ASSERT_TRUE(isOnTop<Info>());
    EXPECT_EQ(titles(), (Lines{"Contact Us", "Rate App", "Watch tutorial", "Settings", "Privacy policy"}));
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(cells()[i]->frame(), CGRectMake(0, i * 60.0, 320, 60));
    EXPECT_TRUE(host.draw().text("Velmorath"));
    EXPECT_EQ(host.draw().text("Rate App")->color, UIColor::white());
    close();
    EXPECT_FALSE(presented());
}

TEST_F(InfoTest, RowsAreTintedInTheTheme)
{
    openWith("theme", "Black");
    const std::vector<CGColor> greys = tints();
    ASSERT_EQ(greys.size(), 5u);
    for (std::size_t i = 0; i < greys.size(); ++i) {
        EXPECT_NEAR(greys[i].red, i * 0.15, 1e-12);
        EXPECT_EQ(greys[i], CGColor::gray(greys[i].red));
    }
    close();
    set("theme", "Violet");
    openInformation();
    EXPECT_EQ(tints().front(), (CGColor{3.0, 0.0, 3.0, 1.0}));
    EXPECT_EQ(tints().back(), (CGColor{3.0, 0.6, 3.0, 1.0}));
    close();
    set("theme", "violet");
    openInformation();
    EXPECT_EQ(tints(), std::vector<CGColor>(5, UIColor::black()));
}

TEST_F(InfoTest, ReadsTheSettingsEachTimeItAppears)
{
    start({"One"});
    UserDefaults::standard().removeObject(settingsKey);
    takeLines();
    openInformation();
    Lines lines = takeLines();
    ASSERT_GE(lines.size(), 3u);
    lines.resize(3);
    EXPECT_EQ(lines, (Lines{"non cè qualcosa", "devo inizializzare il dizionario", "colorForIndex:"}));
    EXPECT_EQ(stored(), defaultSettings("Red"));
    close();
    openInformation();
    lines = takeLines();
    EXPECT_NE(std::find(lines.begin(), lines.end(), "cè qualcosa"), lines.end());
    EXPECT_TRUE(cells()[0]->textLabel().text() == "Contact Us");
}

TEST_F(InfoTest, TapsAreHeardAndFeltAsTheOptionsSay)
{
    openWith("soundEffect", "true");
    tapRow(1);
    EXPECT_EQ(takeFelt(), (Lines{"ripristino.mp3", "vibration"}));
    close();
    set("soundEffect", "TRUE");
    openInformation();
    tapRow(1);
    EXPECT_EQ(takeFelt(), (Lines{"vibration"}));
    close();
    set("vibration", "false");
    openInformation();
    tapRow(4);
    EXPECT_EQ(takeFelt(), Lines{});
}

TEST_F(InfoTest, LeadsToTheStoreAndToThePrivacyPage)
{
    openWith("theme", "Red");
    tapRow(1);
    EXPECT_EQ(takeLines(), (Lines{"You selected cell #1!", "----- richiedo recenzione app"}));
    tapRow(4);
    EXPECT_EQ(takeLines(), (Lines{"You selected cell #4!"}));
    const std::string review = "://" + std::string(configuration::storeHost) + "/app/apple-store/id"
        + std::string(configuration::storeIdentifier) + "?action=write-review";
    EXPECT_EQ(host.effects().openedAddresses(),
        (Lines{"itms-apps" + review, std::string(configuration::privacyPage)}));

    host.effects().refuseScheme("itms-apps");
    tapRow(1);
    EXPECT_EQ(host.effects().openedAddresses().back(), "https" + review);
    host.effects().refuseScheme("https");
    tapRow(1);
    tapRow(4);
    EXPECT_EQ(host.effects().openedAddresses().size(), 3u);
    EXPECT_TRUE(isOnTop<Info>());
}

TEST_F(InfoTest, WritesToTheMakers)
{
    openWith("soundEffect", "false");
    tapRow(0);
    EXPECT_EQ(takeLines(), (Lines{"You selected cell #0!", "Nome dell'app: Velmorath"}));
    ASSERT_TRUE(isOnTop<MFMailComposeViewController>());
    EXPECT_TRUE(host.draw().text("To: hello@velmorath.example"));
    EXPECT_TRUE(host.draw().text("Phone,Test phone,Headless,1.0   Velmorath  Free"));
    tap({48, 28});
    host.advance(0.5);
    EXPECT_TRUE(isOnTop<Info>());
    EXPECT_EQ(host.effects().openedAddresses(), Lines{});

    Bundle::main().setInfoDictionary({{"CFBundleDisplayName", 1}, {"CFBundleName", "Other"}});
    takeLines();
    tapRow(0);
    EXPECT_EQ(takeLines("Nome dell'app"), (Lines{"Nome dell'app: Other"}));
    EXPECT_TRUE(host.draw().text("Phone,Test phone,Headless,1.0   Other  Free"));
    tap({272, 28});
    host.advance(0.5);
    EXPECT_TRUE(isOnTop<Info>());
    EXPECT_EQ(host.effects().openedAddresses(),
        (Lines{"mailto:hello@velmorath.example?body="
               "Phone%2CTest%20phone%2CHeadless%2C1.0%20%20%20Other%20%20Free"}));

    Bundle::main().setInfoDictionary({});
    takeLines();
    tapRow(0);
    EXPECT_EQ(takeLines("Nome dell'app"), Lines{});
    EXPECT_TRUE(host.draw().text("Phone,Test phone,Headless,1.0     Free"));
}

TEST_F(InfoTest, SaysWhenNoMailCanBeSent)
{
    openWith("theme", "Red");
    host.effects().setCanSendMail(false);
    tapRow(0);
    ASSERT_TRUE(isOnTop<UIAlertController>());
    EXPECT_EQ(host.draw().text("Could Not Send Email")->kind, DrawingCommand::Kind::text);
    EXPECT_TRUE(host.draw().text(
        "Your device could not send e-mail.  Please check e-mail configuration and try again."));
    const CGRect button = host.draw().text("OK")->rect;
    tap(button.center());
    host.advance(0.5);
    EXPECT_TRUE(isOnTop<Info>());
}

TEST_F(InfoTest, ATransitionFromItGoesOnToItsDestinationsOwn)
{
    class Destination : public UIViewController {
    public:
        void prepareForSegue(UIStoryboardSegue& segue, const std::any& value) override
        {
            identifier = segue.identifier;
            sender = std::any_cast<std::shared_ptr<UIViewController>>(value).get();
        }
        std::string identifier;
        UIViewController* sender = nullptr;
    };
    UIStoryboard::enter("Transitions",
        {{"Destination", [] { return std::make_shared<Destination>(); }, [](UIViewController&, UIView&) {},
            {{"info2", "Destination"}}}});
    openWith("theme", "Red");
    const auto made = UIStoryboard::named("Transitions").instantiateInitialViewController();
    auto& destination = static_cast<Destination&>(*made);
    UIStoryboardSegue segue{"any", top(), destination};
    top().prepareForSegue(segue, {});
    EXPECT_EQ(destination.identifier, "info2");
    EXPECT_EQ(destination.sender, &top());
    UIStoryboardSegue deadEnd{"any", top(), list()};
    EXPECT_DEATH(top().prepareForSegue(deadEnd, {}), "no transition named info2");
}

TEST_F(InfoTest, ARowGetsOneMoreSheenEachTimeItIsUsed)
{
    openWith("theme", "Red");
    const std::shared_ptr<UITableViewCell> cell = cells().front();
    EXPECT_EQ(sheens(*cell), 1u);
    for (int i = 0; i < 3; ++i) {
        tapRow(3);
        close();
    }
    ASSERT_EQ(cells().front(), cell);
    EXPECT_EQ(sheens(*cell), 4u);
    const auto* lowest = dynamic_cast<CAGradientLayer*>(cell->layer().sublayers().front().get());
    ASSERT_TRUE(lowest);
    EXPECT_EQ(lowest->frame(), CGRectMake(0, 0, 320, 60));
    EXPECT_EQ(lowest->gradient().locations, (std::vector<CGFloat>{0.0, 0.01, 0.95, 1.0}));
    EXPECT_EQ(lowest->gradient().colors,
        (std::vector<CGColor>{{1, 1, 1, 0.2}, {1, 1, 1, 0.1}, {0, 0, 0, 0}, {0, 0, 0, 0.1}}));
}

TEST_F(InfoTest, ImpossibleStatesEndTheProgram)
{
    start({"One"});
    const auto bare = std::make_shared<Info>();
    EXPECT_DEATH(list().present(bare, false), "table is not connected");
    storeWithout("theme");
    EXPECT_DEATH(openInformation(), "lack a string under theme");
    set("theme", "Red");
    storeWithout("vibration");
    EXPECT_DEATH(openInformation(), "lack a string under vibration");
    set("vibration", "true");
    openInformation();
    const auto tapWithoutSounds = [this] {
        HeadlessHost bareHost("/nowhere");
        tapRow(1);
    };
    EXPECT_DEATH(tapWithoutSounds(), "ripristino.mp3 is missing");
}

} // namespace
} // namespace velmorath
