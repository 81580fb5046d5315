#include "EZLoadingActivity.h"
#include "PubblicitaView.h"
#include "Story.h"

namespace velmorath {
namespace {

/// Does everything once, and looks at the lines that the program writes as well.
class TranscriptsTest : public Story {
protected:
    TranscriptsTest() { tellLines(); }

    /// On a fresh list.
    void open(const Lines& texts, const SettingsDictionary& settings = defaultSettings("Red"))
    {
        host.quit();
        UserDefaults::standard().setObject(settingsKey, settings);
        start(texts);
        takeFelt();
    }
    static SettingsDictionary settingsBut(const std::string& key, const std::string& value)
    {
        SettingsDictionary settings = defaultSettings("Blue");
        settings.insert_or_assign(key, value);
        return settings;
    }
};

TEST_F(TranscriptsTest, TheFirstDay)
{
    then("the first start", 0.3, [&] { launch(); });
    EXPECT_EQ(host.effects().permissionsAsked(), 1);
    then("the tutorial is offered", 1);
    then("yes, show the tutorial", [&] { tap(host.draw().text("Yes")->rect.center()); });
    then("next", [&] { tap(host.draw().text("next")->rect.center()); });
    then("close", [&] { tap(host.draw().text("close")->rect.center()); });
    then("the second start: the sample note is not saved, and not made again", [&] { relaunch(); });
    then("the first note", [&] { host.press(HostKey::insert), type("Mine"); });
    then("the third start", [&] { relaunch(); });
    UserDefaults::standard().removeObject(settingsKey);
    UserDefaults::standard().synchronize();
    then("a start without settings", [&] { relaunch(); });
    UserDefaults::standard().removeObject(settingsKey);
    then("the information without settings", [&] { openInformation(); });
    then("they were stored", [&] { relaunch(); });
}

TEST_F(TranscriptsTest, Swipes)
{
    open({"One", "Two", "x Three"});
    then("complete", [&] { swipe(1, 200); });
    then("reopen", [&] { swipe(2, 200); });
    then("not far enough", [&] { swipe(0, 160); });
    then("delete a completed one", [&] { swipe(1, -200); });
    then("delete an open one", [&] { swipe(0, -200); });
    for (const std::string option : {"appIconBadge", "soundEffect", "vibration"}) {
        open({"One", "Two", "x Three"}, settingsBut(option, "True"));
        then("complete without " + option, [&] { swipe(0, 200); });
        then("delete without " + option, [&] { swipe(1, -200); });
        then("type without " + option, [&] { tapWords(0), tapWords(1), type("Uno"); });
    }
}

TEST_F(TranscriptsTest, Typing)
{
    open({"One", "Two"});
    then("edit", [&] { tapWords(0); });
    then("tap beside other words", [&] { tapBesideWords(1); });
    then("pull while typing", [&] { beginPull(80).lift(); });
    then("swipe while typing", [&] { swipe(1, -200); });
    then("return", [&] { type("One!"); });
    then("edit the date", [&] { tap({270, 13}); });
    then("return", [&] { type("Sunday"); });
    then("leave empty", [&] { tapWords(0), type(""); });
    then("a new one", [&] { host.press(HostKey::insert); });
    then("type it", [&] { type("New"); });
    then("open a note", [&] { tapBesideWords(0); });
    then("close it: the badge counts again", [&] { tap({28, 28}); });
}

TEST_F(TranscriptsTest, PinchingAndMoving)
{
    open({"One", "Two", "Three"});
    TwoFingers fingers(host, {100, 30}, {100, 90});
    then("pinch", [&] { fingers.spread(4, 4, 1); });
    then("spread", [&] { fingers.spread(40, 40, 1); });
    then("let go", [&] { fingers.lift(); });
    then("type between", [&] { type("Between"); });
    then("reorder", [&] { tapReorder(); });
    then("move a row", [&] {
        Finger finger(host, {295, 30});
        finger.moveTo({295, 210});
        finger.lift();
    });
    then("hold a row", [&] { Finger(host, {295, 30}).lift(); });
}

TEST_F(TranscriptsTest, Reading)
{
    open({"One", "Two"});
    const auto edit = [&](const std::string& text) {
        tap({100, 300});
        host.textInput().replaceText(text);
    };
    const auto openNote = [&] { tapBesideWords(0); };
    const auto save = [&] { tap({292, 28}); };
    then("open a note", openNote);
    then("close it", [&] { edit("forgotten"), tap({28, 28}); });
    then("open it", openNote);
    then("save it as it is", save);
    then("open it", openNote);
    then("save it changed", [&] { edit("Uno\nwith lines"), save(); });
    then("open it", openNote);
    then("save it empty", [&] { edit(""), save(); });
}

TEST_F(TranscriptsTest, Settings)
{
    open({"One", "x Two", "Three"});
    then("open the information", [&] { openInformation(); });
    for (const int place : {1, 4, 0})
        then("row " + std::to_string(place), [&] { tapRow(static_cast<std::size_t>(place)); });
    then("cancel the mail", [&] { tap({48, 28}); });
    then("open the options", [&] { tapRow(3); });
    for (const int place : {0, 0, 2, 1, 1, 3})
        then("row " + std::to_string(place), [&] { tapRow(static_cast<std::size_t>(place)); });
    then("the theme Mixed", [&] { tapRow(5); });
    for (int screens = 0; screens < 3; ++screens)
        then("close", [&] { close(); });
}

TEST_F(TranscriptsTest, Overlays)
{
    open({"One"});
    then("show the box", [&] { EZLoadingActivity::show("Loading", false); });
    then("show another", [&] { EZLoadingActivity::show("Second", false); });
    then(
        "end it twice", 2, [&] { EZLoadingActivity::hide(true, true), EZLoadingActivity::hide(true, true); });
    then("end none", [&] { EZLoadingActivity::hide(false, true); });
    const auto banner = std::make_shared<PubblicitaView>(CGRectMake(0, 100, 320, 128));
    list().view()->addSubview(banner);
    for (const auto& icon : {banner->iconaApp1, banner->iconaApp2})
        then("an icon", [&] { tap(banner->convertToWindow(icon.lock()->center())); });
}

} // namespace
} // namespace velmorath
