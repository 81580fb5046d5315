#include "Story.h"
#include "UIApplication.h"

namespace velmorath {
namespace {

class VistaNoteViewControllerTest : public Story {
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
    then("opened", 0.1, [&] { tapBesideWords(0); });
    const auto first = presented();
    const CALayerState shown = first->view()->layer().presented(host.clock().now());
    EXPECT_GT(shown.position.y, 268);
    EXPECT_LT(shown.position.y, 268 + 536);
    then("it is still coming", 0.5, [&] { tapSave(), tapWords(1); });
    EXPECT_EQ(countLines("chiudo e salvo la modifica :"), 0u);
    EXPECT_TRUE(list().view()->isHidden());
    then("closed", 0.1, [&] { tapClose(); });
    EXPECT_FALSE(list().view()->isHidden());
    then("it is still going", 0.5, [&] { tapBesideWords(1); });
    then("opened", [&] { open(1); });
    EXPECT_EQ(detail().indirizzoNotaDaVisualizzare, 1);
}

TEST_F(VistaNoteViewControllerTest, EscapeClosesOnlyWhenNothingThatWasTypedIsLost)
{
    start({"One"});
    open(0);
    for (const std::string text : {"One and more", "One"}) {
        edit(text);
        then(text, [&] { host.textInput().pressReturn(); });
        then("escape", [&] { EXPECT_TRUE(host.press(HostKey::escape)); });
    }
}

TEST_F(VistaNoteViewControllerTest, ALongNoteIsEditedWhereItIsReadAndReadWhereItWasEdited)
{
    host.screen().setSize({1200, 400});
    std::string text;
    for (int line = 0; line < 60; ++line)
        text += "a line that fills about a column\n";
    start({text});
    tap({1170, 30});
    host.advance(0.5);
    const CGFloat column = (1200.0 - 700) / 2;
    const auto shown = [&] { return host.draw().text(text)->rect.origin; };
    EXPECT_EQ(shown(), (CGPoint{column, 56 + 16}));
    host.wheel({20, 300}, -100);
    host.advance(0.1);
    EXPECT_EQ(shown().y, 56 + 16 - 100) << "beside the column";

    tap({column + 30, 200});
    ASSERT_TRUE(host.textInput().isEditing());
    EXPECT_EQ(host.textInput().traits().scrolled, 100);
    EXPECT_EQ(host.textInput().traits().tap, (CGPoint{30, 200 - 56 - 16}));
    host.textInput().scrollTo(240);
    host.textInput().pressReturn();
    host.advance(0.1);
    EXPECT_EQ(shown().y, 56 + 16 - 240);
    host.press(HostKey::enter);
    EXPECT_TRUE(host.textInput().isEditing());
    EXPECT_FALSE(host.textInput().traits().tap) << "by a key";
}

TEST_F(VistaNoteViewControllerTest, OneLettersCaseIsAChangeSpacesAreTextAndNoTextIsChangedByBeingSaved)
{
    start({"one", "two", "three"});
    list().arrayNote[2]->text.reset();
    table().reloadData();
    for (const auto& [place, text] : {std::pair<std::size_t, std::string>{0, "One"}, {1, "   "}, {2, ""}}) {
        open(place);
        edit(text);
        tapSave();
        host.advance(0.5);
    }
    EXPECT_EQ(saved(), (Lines{"One", "   "}));
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
