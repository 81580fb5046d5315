#include "ListTest.h"
#include "UIApplication.h"

namespace velmorath {
namespace {

class VistaNoteViewControllerTest : public ListTest {
protected:
    void open(std::size_t place)
    {
        tapBesideWords(place);
        host.advance(0.5);
    }
    VistaNoteViewController& detail() const { return dynamic_cast<VistaNoteViewController&>(*presented()); }
    void edit(const std::string& text)
    {
        tap({100, 300});
        host.textInput().replaceText(text);
    }
    void tapClose() { tap({28, 28}); }
    void tapSave() { tap({292, 28}); }
};

TEST_F(VistaNoteViewControllerTest, TheListHandsOverItselfTheIndexAndTheColour)
{
    start({"One", "Two", "Three"});
    tapBesideWords(1);
    EXPECT_EQ(takeLines(),
        (Lines{"----👍👍👍👍👍👍👍👍 didSelectRowAt", "array trovato", "Oggetto Int: 1", "colore trovato"}));
    EXPECT_EQ(detail().arrayNotePortato, list().arrayNote);
    EXPECT_EQ(detail().indirizzoNotaDaVisualizzare, 1);
    EXPECT_EQ(detail().coloreNota, (CGColor{0, 0.3, 1, 1}));
    host.advance(0.5);
    const DrawingRecorder drawn = host.draw();
    EXPECT_EQ(drawn.colorAt({160, 28}), (CGColor{0, 0.3, 1, 1}));
    EXPECT_TRUE(drawn.text("Two"));
    EXPECT_FALSE(drawn.text("Three"));
}

TEST_F(VistaNoteViewControllerTest, ARowWithoutAColourHandsOverBlue)
{
    start({"One"}, "Red");
    row(0).setBackgroundColor(UIColor::clear());
    open(0);
    EXPECT_EQ(detail().coloreNota, UIColor::blue());
}

TEST_F(VistaNoteViewControllerTest, ACompletedNoteHasAGreenBar)
{
    start({"x One", "Two"});
    open(0);
    EXPECT_EQ(detail().barra.lock()->backgroundColor(), UIColor::systemGreen().withAlpha(0.6));
}

TEST_F(VistaNoteViewControllerTest, ItSlidesInAndOutAndIsDeafMeanwhile)
{
    start({"One", "Two"});
    tapBesideWords(0);
    const auto first = presented();
    host.advance(0.1);
    const CALayerGeometry shown = first->view()->layer().presented(host.clock().now());
    EXPECT_GT(shown.position.y, 268);
    EXPECT_LT(shown.position.y, 268 + 536);
    tapSave();
    tapWords(1);
    EXPECT_EQ(countLines("chiudo e salvo la modifica :"), 0u);
    EXPECT_FALSE(host.textInput().isEditing());
    host.advance(0.5);
    EXPECT_TRUE(list().view()->isHidden());

    takeLines();
    tapClose();
    EXPECT_FALSE(list().view()->isHidden());
    EXPECT_EQ(countLines("cè qualcosa"), 1u);
    tapBesideWords(1);
    EXPECT_EQ(presented(), first);
    host.advance(0.5);
    EXPECT_FALSE(presented());
    open(1);
    EXPECT_EQ(detail().indirizzoNotaDaVisualizzare, 1);
}

TEST_F(VistaNoteViewControllerTest, ClosingForgetsWhatWasTyped)
{
    start({"One"});
    open(0);
    edit("");
    takeLines();
    tapClose();
    host.advance(0.5);
    EXPECT_EQ(countLines("chiudi"), 1u);
    EXPECT_EQ(countLines("ArchiveResults"), 0u);
    EXPECT_EQ(notes(), (Lines{"One"}));
    EXPECT_FALSE(host.textInput().isEditing());
    open(0);
    EXPECT_EQ(detail().testo.lock()->text(), "One");
}

TEST_F(VistaNoteViewControllerTest, SavingNothingNewSavesNothing)
{
    start({"One"});
    open(0);
    const int written = host.files().replacements();
    takeLines();
    tapSave();
    host.advance(0.5);
    EXPECT_EQ(takeLines("chi"), (Lines{"chiudo e salvo la modifica :"}));
    EXPECT_EQ(host.files().replacements(), written);
    EXPECT_FALSE(presented());
}

TEST_F(VistaNoteViewControllerTest, SavingHandsTheListBackWhenTheScreenHasGone)
{
    start({"one", "Two"});
    open(0);
    edit("One\n with lines ");
    EXPECT_TRUE(host.textInput().traits().multiline);
    takeLines();
    tapSave();
    EXPECT_EQ(
        countLines("la nota è stata modificata quindi devo passare il nuovo array nell altra vista :"), 1u);
    EXPECT_EQ(countLines("------ nuovoArrayNote"), 0u);
    takeLines();
    host.advance(0.5);
    const Lines lines = takeLines();
    const auto blank = std::find(lines.begin(), lines.end(), "");
    ASSERT_GE(lines.end() - blank, 4);
    EXPECT_EQ(Lines(blank, blank + 4),
        (Lines{"", "------ nuovoArrayNote", "ArchiveResults", "Success writing to file!"}));
    EXPECT_EQ(saved(), (Lines{"One\n with lines ", "Two"}));
    EXPECT_EQ(shown(), saved());
    EXPECT_EQ(list().arrayNote[0]->data, std::nullopt);
}

TEST_F(VistaNoteViewControllerTest, OneLettersCaseIsAChangeAndSpacesAreText)
{
    start({"one", "two"});
    open(0);
    edit("One");
    tapSave();
    host.advance(0.5);
    open(1);
    edit("   ");
    tapSave();
    host.advance(0.5);
    EXPECT_EQ(saved(), (Lines{"One", "   "}));
}

TEST_F(VistaNoteViewControllerTest, ErasingTheTextDeletesTheNote)
{
    start({"One", "Two", "Three"});
    open(1);
    edit("");
    tapSave();
    host.advance(0.5);
    EXPECT_EQ(saved(), (Lines{"One", "Three"}));
    EXPECT_EQ(shown(), saved());
}

TEST_F(VistaNoteViewControllerTest, WithoutADelegateOnlyTheSharedTextChanges)
{
    start({"One"});
    open(0);
    detail().delegate = nullptr;
    edit("Uno");
    tapSave();
    host.advance(0.5);
    EXPECT_EQ(notes(), (Lines{"Uno"}));
    EXPECT_EQ(saved(), (Lines{"One"}));
    EXPECT_FALSE(presented());
}

TEST_F(VistaNoteViewControllerTest, ANoteWithoutTextIsChangedByBeingSaved)
{
    start({"One", "Two"});
    list().arrayNote[0]->text.reset();
    table().reloadData();
    open(0);
    EXPECT_EQ(detail().testo.lock()->text(), "");
    tapSave();
    host.advance(0.5);
    EXPECT_EQ(saved(), (Lines{"Two"}));
}

using VistaNoteViewControllerDeathTest = VistaNoteViewControllerTest;

TEST_F(VistaNoteViewControllerDeathTest, WhatCannotBe)
{
    start({"One"});
    open(0);
    detail().indirizzoNotaDaVisualizzare = 1;
    EXPECT_DEATH(tapSave(), "not in the list");
    EXPECT_DEATH(detail().viewWillAppear(false), "not in the list");
    detail().indirizzoNotaDaVisualizzare.reset();
    EXPECT_DEATH(detail().viewWillAppear(false), "not in the list");
    detail().indirizzoNotaDaVisualizzare = 0;
    detail().testo.reset();
    EXPECT_DEATH(tapSave(), "text view is not connected");
    detail().barra.reset();
    EXPECT_DEATH(detail().viewWillAppear(false), "colour bar is not connected");
}

TEST_F(VistaNoteViewControllerDeathTest, TheTransitionNeedsAListOfValues)
{
    start({"One"});
    EXPECT_DEATH(list().performSegue("VistaNoteViewController", 7), "without a list of values");
    EXPECT_DEATH(list().performSegue("Elsewhere", {}), "no transition named Elsewhere");
}

} // namespace
} // namespace velmorath
