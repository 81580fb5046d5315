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

void ScreensWalk::visitList()
{
    openUsualList();
    look("list");
    if (!m_everything)
        return;
    host.press(HostKey::down);
    host.advance(0.5);
    look("list-focused");
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
    swipe(1, -half - 10);
    host.advance(0.15);
    look("gap-closing");

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
    tapWords(2);
    host.advance(0.5);
    look("editing-text");
    type(longText);
    host.advance(0.5);
    look("edited-text");
    if (!m_everything)
        return;
    tap({host.screen().size().width - 50, 13});
    host.advance(0.5);
    look("editing-date");
    openUsualList();
    beginPull(70).lift();
    host.advance(1);
    look("editing-new-note");
}

void ScreensWalk::visitReordering()
{
    openUsualList();
    tapReorder();
    host.advance(0.5);
    look("reordering");
    if (!m_everything)
        return;
    Finger dragging(host, {host.screen().size().width - 25, 30});
    dragging.moveBy({0, 75});
    host.advance(0.5);
    look("reordering-dragged");
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
    tap({200, 125});
    host.advance(0.5);
    look("note-long");
    if (!m_everything)
        return;
    tap({100, 300});
    host.advance(0.5);
    look("note-edited");
    for (const auto& [place, name] : {std::pair<std::size_t, std::string>{0, "short"}, {1, "completed"}}) {
        openUsualList();
        tapBesideWords(place);
        host.advance(0.5);
        look("note-" + name);
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
    close();
    close();
    look("information-again");
}

void ScreensWalk::visitTutorial()
{
    open({"One"});
    UserDefaults::standard().removeObject("primoAvvioApp7");
    launch();
    host.advance(1);
    look("offer");
    tap(host.draw().text("Yes")->rect.center());
    host.advance(1);
    look("tutorial");
    const CGPoint button = host.draw().text("next")->rect.center();
    {
        Finger finger(host, button);
        look("tutorial-held");
        finger.lift();
    }
    host.advance(1);
    look("tutorial-last");
}

void ScreensWalk::visitMail()
{
    open({"One"});
    openInformation();
    tapRow(0);
    host.advance(0.5);
    look("mail");
    if (!m_everything)
        return;
    tap({160, 300});
    look("mail-edited");
    open({"One"});
    host.effects().setCanSendMail(false);
    openInformation();
    tapRow(0);
    host.advance(0.5);
    look("mail-impossible");
    host.effects().setCanSendMail(true);
}

void ScreensWalk::visitSharing()
{
    open({"One"});
    list().offerSharing();
    host.advance(0.5);
    look("sharing");
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
        tap({size.width / 2, size.height - fromBottom});
        host.advance(0.5);
        look(state);
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
        host.client().documentsChanged();
        host.advance(0.5);
        look(state);
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
        EZLoadingActivity::show("Loading", false);
        host.advance(0.1);
        look(succeeds ? "loading-darkened-coming" : "loading-coming");
        host.advance(0.4);
        look(succeeds ? "loading-darkened" : "loading");
        EZLoadingActivity::hide(succeeds, true);
        host.advance(0.3);
        look(succeeds ? "loading-success-coming" : "loading-failure-coming");
        host.advance(succeeds ? 0.3 : 0.8);
        look(succeeds ? "loading-success-going" : "loading-failure-going");
        host.advance(5);
        look(succeeds ? "loading-gone" : "loading-failure-gone");
    }
    EZLoadingActivity::Settings::DarkensBackground() = false;
}

} // namespace velmorath
