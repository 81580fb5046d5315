#include "Story.h"

namespace velmorath {
namespace {

using EditingTest = Story;

TEST_F(EditingTest, TheRowGoesToTheTopAndTheOthersFade)
{
    start({"1", "2", "3", "4"});
    then("it goes", 0.15, [&] { tapWords(2); });
    then("it is there", 0.16);
    then("it comes back", 0.15, [&] { type("three"); });
    then("it is back", 0.16);
    then("the end of the program keeps what was typed", [&] {
        tapWords(0);
        host.textInput().replaceText("Uno");
        relaunch();
    });
}

TEST_F(EditingTest, TheRowIsAtTheTopOfWhatIsInSightInAnyWindow)
{
    start(numbers(20));
    then("scrolled", [&] { scroll(-90); });
    then("typed into", [&] { tap({20, 200}); });
    then("another size", [&] { host.resize({500, 400}); });
    EXPECT_EQ(host.textInput().frame().size.width, 470);
    then("done", [&] { type("note"); });
}

TEST_F(EditingTest, ARowOutOfSightKeepsItsEditorAndThoseThatComeLookLikeTheOthers)
{
    start(numbers(40));
    tapWords(3);
    for (const CGFloat way : {-1200, 1000, -800})
        then("the wheel " + std::to_string(way), [&] { host.wheel({100, 100}, way); });
    then("done", [&] { type("far away"); });
    for (const CGFloat way : {-600, 5000})
        then("the wheel " + std::to_string(way), [&] { host.wheel({100, 100}, way); });
}

} // namespace
} // namespace velmorath
