#include "Bundle.h"
#include "FilesOnDisk.h"
#include "Info.h"
#include "Info2.h"
#include "Story.h"

namespace velmorath {
namespace {

class SettingsTest : public Story {
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

TEST_F(SettingsTest, AddressesAreOpenedWhereTheyCanBe)
{
    start({"One"});
    openInformation();
    const std::size_t before = host.draw().commands().size();
    host.effects().refuseScheme("itms-apps");
    then("the store's page on the web", [&] { tapRow(1); });
    EXPECT_EQ(host.draw().commands().size(), before) << "nothing pale over the row";
    host.effects().refuseScheme("https");
    then("none", [&] { tapRow(1), tapRow(4); });

    tellLines();
    tellScreen();
    Bundle::main().setInfoDictionary({{"CFBundleDisplayName", 1}, {"CFBundleName", "Other"}});
    then("a mail to the makers", [&] { tapRow(0); });
    then("sent", [&] { tap({272, 28}); });
    Bundle::main().setInfoDictionary({});
    then("of a program without a name", [&] { tapRow(0); });
}

TEST_F(SettingsTest, TheBadgeCountsWhatIsInTheFileAndTheListCountsAnew)
{
    start({"One", "x Two", "Three"}, "Red");
    openOptions();
    for (const std::string file : {"", "neither notes nor anything else"}) {
        then("off", [&] { tapRow(0); });
        std::remove(archivePath().c_str());
        if (!file.empty())
            replaceFromOutside(archivePath(), file);
        host.effects().setBadge(17);
        then("on", [&] { tapRow(0); });
    }
    then("back in the list", [&] { close(), close(); });
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
    const auto byFinger = [this] {
        Finger finger(host, {160, 270});
        finger.moveBy({0, -250});
        finger.hold();
        finger.lift();
        host.advance(1);
        tap({160, 290});
    };
    const auto byWheel = [this] {
        host.wheel({160, 290}, -300);
        tap({160, 290});
    };
    const auto byKeys = [this](HostKey choosing) {
        for (const HostKey key : {HostKey::tab, HostKey::tab, HostKey::end, choosing})
            host.press(key);
    };
    host.screen().setSize({568, 320});
    tellScreen();
    using Way = std::function<void()>;
    for (const auto& [what, way] : {std::pair<std::string, Way>{"by finger", byFinger}, {"by wheel", byWheel},
             {"by enter", [&] { byKeys(HostKey::enter); }}, {"by space", [&] { byKeys(HostKey::space); }}}) {
        set("theme", "Red");
        start({"One"});
        then("the themes", [&] { openThemes(); });
        then(what, way);
    }
    EXPECT_EQ(host.draw().text("Black")->rect.maxY(), 320);
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
