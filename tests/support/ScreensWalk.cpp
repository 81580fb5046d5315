#include "ScreensWalk.h"
#include "EZLoadingActivity.h"
#include "FilesOnDisk.h"
#include "PubblicitaView.h"

namespace velmorath {

namespace {

const std::string longText =
    "A note that is much too long for one line of a phone, and for the date's column";

}

void ScreensWalk::walk(CGSize size, bool everything)
{
    host.quit();
    host.screen().setSize(size);
    m_everything = everything;
    visitList();
    visitGestures();
    visitEditing();
    visitReordering();
    visitNotes();
    visitInformation();
    visitTutorial();
    visitMail();
    visitSharing();
    visitOverlays();
    if (everything) {
        visitNews();
        visitThemes();
    }
}

void ScreensWalk::open(const Lines& texts, const std::string& theme)
{
    // What is still being typed is saved before the notes are laid out, not after.
    host.quit();
    UserDefaults::standard().setObject(settingsKey, defaultSettings(theme));
    start(texts, theme);
}

void ScreensWalk::openUsualList()
{
    open({"Milk", "x Bread", longText, "שלום", "Party \U0001F389", ""}, "Blue");
    for (const std::size_t place : {0, 2})
        list().arrayNote[place]->data = "Nov 22, 2026";
    table().reloadData();
    host.advance(0.05);
}

void ScreensWalk::lookAfter(const std::string& state, const std::function<void()>& deed, double seconds)
{
    deed();
    host.advance(seconds);
    look(state);
}

void ScreensWalk::visitList()
{
    openUsualList();
    look("list");
    if (!m_everything)
        return;
    lookAfter("list-focused", [&] { host.press(HostKey::down); });
    open({"Only"}, "Red");
    look("list-one-note");
    open({});
    look("list-empty");
    open(Lines(20, "note"));
    scroll(-330);
    look("list-scrolled");
}

void ScreensWalk::visitGestures()
{
    openUsualList();
    Finger pull = beginPull(30);
    look("pull-30");
    movePull(pull, 61);
    look("pull-61");
    pull.cancel();
    const CGFloat half = host.screen().size().width / 2;
    if (!m_everything)
        return;

    for (const auto& [place, name] : {std::pair<std::size_t, std::string>{0, "open"}, {1, "completed"}}) {
        for (const auto& [way, state] :
            {std::pair{half - 10, "right-before-half"}, {half + 10, "right-past-half"},
                {-half + 10, "left-before-half"}, {-half - 10, "left-past-half"}}) {
            openUsualList();
            Finger swiping = beginSwipe(place, way);
            look("swipe-" + name + "-" + state);
            swiping.cancel();
        }
    }
    openUsualList();
    lookAfter(
        "gap-closing", [&] { swipe(1, -half - 10); }, 0.15);

    openUsualList();
    TwoFingers fingers(host, {100, 30}, {100, 90});
    fingers.spread(4, 4, 1);
    fingers.spread(15, 15, 1);
    look("pinch-30");
    fingers.spread(20, 20, 1);
    look("pinch-70");
    fingers.cancel();
}

void ScreensWalk::visitEditing()
{
    openUsualList();
    lookAfter("editing-text", [&] { tapWords(2); });
    lookAfter("edited-text", [&] { type(longText); });
    if (!m_everything)
        return;
    lookAfter("editing-date", [&] { tap({host.screen().size().width - 50, 13}); });
    openUsualList();
    lookAfter(
        "editing-new-note", [&] { beginPull(70).lift(); }, 1);
}

void ScreensWalk::visitReordering()
{
    openUsualList();
    lookAfter("reordering", [&] { tapReorder(); });
    if (!m_everything)
        return;
    Finger dragging(host, {host.screen().size().width - 25, 30});
    lookAfter("reordering-dragged", [&] { dragging.moveBy({0, 75}); });
}

void ScreensWalk::visitThemes()
{
    for (const std::string theme :
        {"Red", "Green", "Violet", "Blue", "Yellow", "Mixed", "Black", "unknown"}) {
        open({"1", "2", "3", "4"}, theme);
        look("theme-" + theme + "-list");
        openThemes();
        look("theme-" + theme + "-settings");
    }
}

void ScreensWalk::visitNotes()
{
    openUsualList();
    list().arrayNote[2]->text = longText + "\n\n" + longText + longText;
    lookAfter("note-long", [&] { tap({200, 125}); });
    if (!m_everything)
        return;
    lookAfter("note-edited", [&] { tap({100, 300}); });
    for (const auto& [place, name] : {std::pair<std::size_t, std::string>{0, "short"}, {1, "completed"}}) {
        openUsualList();
        lookAfter("note-" + name, [&, row = place] { tapBesideWords(row); });
    }
}

void ScreensWalk::visitInformation()
{
    open({"One"}, "Mixed");
    openInformation();
    look("information");
    if (m_everything) {
        Finger finger(host, {160, 56 + 90});
        host.advance(0.2);
        look("information-held");
        finger.cancel();
    }
    set("vibration", "false");
    tapRow(3);
    look("options");
    if (m_everything) {
        tapRow(0);
        look("options-switched");
    }
    tapRow(3);
    look("themes");
    if (!m_everything)
        return;
    const CGSize size = host.screen().size();
    host.resize({size.height, size.width});
    look("themes-turned");
    host.resize(size);
    close();
    close();
    look("information-again");
}

void ScreensWalk::visitTutorial()
{
    open({"One"});
    UserDefaults::standard().removeObject("primoAvvioApp7");
    lookAfter(
        "offer", [&] { launch(); }, 1);
    lookAfter(
        "tutorial", [&] { tap(host.draw().text("Yes")->rect.center()); }, 1);
    Finger finger(host, host.draw().text("next")->rect.center());
    look("tutorial-held");
    lookAfter(
        "tutorial-last", [&] { finger.lift(); }, 1);
}

void ScreensWalk::visitMail()
{
    open({"One"});
    openInformation();
    lookAfter("mail", [&] { tapRow(0); });
    if (!m_everything)
        return;
    tap({160, 300});
    look("mail-edited");
    open({"One"});
    host.effects().setCanSendMail(false);
    openInformation();
    lookAfter("mail-impossible", [&] { tapRow(0); });
    host.effects().setCanSendMail(true);
}

void ScreensWalk::visitSharing()
{
    open({"One"});
    lookAfter("sharing", [&] { list().offerSharing(); });
    if (!m_everything)
        return;
    HeadlessDocuments& documents = host.documents();
    documents.setSaveError(Error{""});
    // From the top of the sheet: share, save, open.
    const auto choose = [&](CGFloat fromBottom, const std::string& state) {
        open({"One"});
        list().offerSharing();
        host.advance(0.5);
        const CGSize size = host.screen().size();
        lookAfter(state, [&] { tap({size.width / 2, size.height - fromBottom}); });
    };
    documents.setHowShared(Documents::Shared::copied);
    choose(180, "shared");
    documents.setHowShared(Documents::Shared::failed);
    choose(180, "not-shared");
    choose(132, "not-saved");
    documents.setFile(Error{""});
    choose(84, "not-opened");
    documents.setFile(std::optional<std::string>("One"));
    choose(84, "nothing-new");
}

void ScreensWalk::visitNews()
{
    open({"One", "Two"});
    const std::string archive = *host.files().read(archivePath());
    open({"One"});
    host.files().setShared(true);
    for (const auto& [state, bytes] :
        {std::pair("news-unreadable", std::string("half")), {"news", archive}}) {
        replaceFromOutside(archivePath(), bytes);
        lookAfter(state, [&] { host.client().documentsChanged(); });
        host.press(HostKey::escape);
        host.advance(0.5);
    }
    host.files().setShared(false);
}

void ScreensWalk::visitOverlays()
{
    open({"One"});
    const CGFloat width = host.screen().size().width;
    list().view()->addSubview(std::make_shared<PubblicitaView>(CGRectMake(0, 100, width, 128)));
    look("banner");
    if (!m_everything)
        return;
    for (const bool succeeds : {true, false}) {
        open({"One"});
        EZLoadingActivity::Settings::DarkensBackground() = succeeds;
        const std::string shown = succeeds ? "loading-darkened" : "loading";
        lookAfter(
            shown + "-coming", [] { EZLoadingActivity::show("Loading", false); }, 0.1);
        lookAfter(
            shown, [] {}, 0.4);
        const std::string ended = succeeds ? "loading-success" : "loading-failure";
        lookAfter(
            ended + "-coming", [&] { EZLoadingActivity::hide(succeeds, true); }, 0.3);
        lookAfter(
            ended + "-going", [] {}, succeeds ? 0.3 : 0.8);
        lookAfter(
            succeeds ? "loading-gone" : "loading-failure-gone", [] {}, 5);
    }
    EZLoadingActivity::Settings::DarkensBackground() = false;
}

} // namespace velmorath
