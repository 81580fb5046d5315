#include "Bundle.h"
#include "Configuration.h"
#include "FilesOnDisk.h"
#include "Info.h"
#include "Info2.h"
#include "ListTest.h"

namespace velmorath {
namespace {

class SettingsTest : public ListTest {
protected:
    /// The screen on top of all others.
    UIViewController& top() const
    {
        UIViewController* controller = &list();
        while (controller->presentedViewController())
            controller = controller->presentedViewController().get();
        return *controller;
    }
    SettingsScreen& screen() const { return dynamic_cast<SettingsScreen&>(top()); }

    /// What the file of the user-defaults store holds.
    static SettingsDictionary stored()
    {
        UserDefaults::standard().reset();
        const SettingsDictionary* settings = UserDefaults::standard().dictionary(settingsKey);
        return settings ? *settings : SettingsDictionary{};
    }
    static void storeWithout(const std::string& key)
    {
        SettingsDictionary settings = stored();
        settings.erase(key);
        UserDefaults::standard().setObject(settingsKey, settings);
    }
};

TEST_F(SettingsTest, WithoutAnyTheInformationStoresRed)
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
}

TEST_F(SettingsTest, WithoutAStoreItsPageIsOpenedOnTheWeb)
{
    start({"One"});
    openInformation();
    const std::size_t before = host.draw().commands().size();
    host.effects().refuseScheme("itms-apps");
    tapRow(1);
    EXPECT_EQ(host.draw().commands().size(), before) << "nothing pale over the row";
    EXPECT_EQ(host.effects().openedAddresses(),
        (Lines{"https://" + std::string(configuration::storeHost) + "/app/apple-store/id"
            + std::string(configuration::storeIdentifier) + "?action=write-review"}));
    host.effects().refuseScheme("https");
    tapRow(1);
    tapRow(4);
    EXPECT_EQ(host.effects().openedAddresses().size(), 1u);
    EXPECT_TRUE(dynamic_cast<Info*>(&top()));
}

TEST_F(SettingsTest, WritesToTheMakersWithTheProgramsName)
{
    start({"One"});
    openInformation();
    Bundle::main().setInfoDictionary({{"CFBundleDisplayName", 1}, {"CFBundleName", "Other"}});
    takeLines();
    tapRow(0);
    EXPECT_EQ(takeLines("Nome dell'app"), (Lines{"Nome dell'app: Other"}));
    tap({272, 28});
    host.advance(0.5);
    EXPECT_TRUE(dynamic_cast<Info*>(&top()));
    EXPECT_EQ(host.effects().openedAddresses(),
        (Lines{"mailto:hello@velmorath.example?body="
               "Phone%2CTest%20phone%2CHeadless%2C1.0%20%20%20Other%20%20Free"}));
    Bundle::main().setInfoDictionary({});
    tapRow(0);
    EXPECT_TRUE(host.draw().text("Phone,Test phone,Headless,1.0     Free"));
}

TEST_F(SettingsTest, TheBadgeCountsWhatIsInTheFileAndTheListCountsAnew)
{
    start({"One", "x Two", "Three"}, "Red");
    host.effects().setBadge(17);
    openOptions();
    for (const std::string file : {"", "neither notes nor anything else"}) {
        tapRow(0);
        std::remove(archivePath().c_str());
        if (!file.empty())
            replaceFromOutside(archivePath(), file);
        tapRow(0);
        EXPECT_EQ(badge(), 0) << file;
    }
    close();
    close();
    EXPECT_EQ(badge(), 2);
}

TEST_F(SettingsTest, AThemeIsStoredAtOnceAndShownAfterTheTap)
{
    start({"One"}, "Red");
    openThemes();
    Finger finger(host, {160, 56 + 5 * 60 + 30});
    finger.lift();
    EXPECT_EQ(stored(), defaultSettings("Mixed"));
    const auto first = screen().tabella.lock()->visibleCells().front();
    EXPECT_EQ(first->backgroundColor(), UIColor::red());
    host.advance(0.1);
    EXPECT_EQ(first->backgroundColor(), (CGColor{0.0, 0.2, 0.0, 1.0}));
}

TEST_F(SettingsTest, ALowWindowScrollsToTheLastThemeByFingerWheelAndKeys)
{
    const CGPoint bottom{160, 290};
    const auto themeChosenAfter = [&](const auto& scroll) {
        host.quit();
        host.screen().setSize({568, 320});
        UserDefaults::standard().setObject(settingsKey, defaultSettings("Red"));
        start({"One"}, "Red");
        openThemes();
        scroll();
        host.advance(1);
        return setting(stored(), "theme");
    };
    EXPECT_EQ(themeChosenAfter([&] {
        Finger finger(host, {160, 270});
        finger.moveBy({0, -250});
        finger.hold();
        finger.lift();
        host.advance(1);
        tap(bottom);
    }),
        "Black");
    EXPECT_EQ(themeChosenAfter([&] {
        host.wheel(bottom, -300);
        tap(bottom);
    }),
        "Black");
    for (const HostKey choosing : {HostKey::enter, HostKey::space}) {
        EXPECT_EQ(themeChosenAfter([&] {
            for (const HostKey key : {HostKey::tab, HostKey::tab, HostKey::end, choosing})
                host.press(key);
        }),
            "Black");
    }
    EXPECT_EQ(host.draw().text("Black")->rect.maxY(), 320);
}

TEST_F(SettingsTest, TheSheenFollowsTheWindow)
{
    start({"One"}, "Red");
    openThemes();
    host.resize({1200, 800});
    host.advance(0.1);
    std::size_t sheens = 0;
    const DrawingRecorder drawn = host.draw();
    for (const DrawingCommand& command : drawn.commands()) {
        if (command.kind == DrawingCommand::Kind::gradient)
            sheens += command.rect.size.width == 1200 ? 1 : 100;
    }
    EXPECT_EQ(sheens, 7u);
}

using SettingsDeathTest = SettingsTest;

TEST_F(SettingsDeathTest, WhatCannotBe)
{
    start({"One"});
    const auto bare = std::make_shared<Info>();
    EXPECT_DEATH(list().present(bare, false), "table is not connected");
    for (const std::string key : {"theme", "vibration"}) {
        storeWithout(key);
        EXPECT_DEATH(openInformation(), "lack a string under " + key);
        set(key, "true");
    }
    openInformation();
    storeWithout("appIconBadge");
    EXPECT_DEATH(tapRow(3), "lack a string under appIconBadge");
    set("appIconBadge", "true");
    tapRow(3);
    UITableView& rows = *screen().tabella.lock();
    static_cast<Info2&>(screen()).titolo.reset();
    EXPECT_DEATH(screen().viewDidLayoutSubviews(), "title label is not connected");
    tapRow(3);
    for (const std::int64_t row : {-1, 7})
        EXPECT_DEATH(screen().tableViewDidSelectRowAtIndexPath(rows, {0, row}), "no row");
}

} // namespace
} // namespace velmorath
