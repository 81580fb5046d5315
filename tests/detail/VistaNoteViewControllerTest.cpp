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

TEST_F(VistaNoteViewControllerTest, ARowWithoutAColourHandsOverBlue)
{
    start({"One"}, "Red");
    row(0).setBackgroundColor(UIColor::clear());
    open(0);
    EXPECT_EQ(detail().coloreNota, UIColor::blue());
}

TEST_F(VistaNoteViewControllerTest, ItSlidesInAndOutAndIsDeafMeanwhile)
{
    start({"One", "Two"});
    tapBesideWords(0);
    const auto first = presented();
    host.advance(0.1);
    const CALayerState shown = first->view()->layer().presented(host.clock().now());
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
