#include "ListTest.h"

namespace velmorath {
namespace {

class CompleteTest : public ListTest {
protected:
    void restartWith(const std::string& key, const std::string& value)
    {
        set(key, value);
        start({"One", "Two", "x Three"});
        takeFelt();
    }
    Lines linesOfSwipe(std::size_t place)
    {
        Finger finger = beginSwipe(place, 200);
        takeLines();
        finger.lift();
        return takeLines();
    }
};

TEST_F(CompleteTest, CompletingAnOpenNote)
{
    start({"One", "Two", "x Three"});
    ASSERT_EQ(badge(), 2);
    EXPECT_EQ(linesOfSwipe(1),
        (Lines{"handlePan", "toDoItemCambiaColoreALetto", "toDoItemDaModificare completed : false   Two",
            "true appiconbadge", "!toDoItem.completed.boolValue", "ArchiveResults",
            "Success writing to file!"}));
    EXPECT_EQ(takeFelt(), (Lines{"completa.mp3", "vibration"}));
    EXPECT_EQ(badge(), 1);
    EXPECT_EQ(saved(), (Lines{"One", "x Two", "x Three"}));
}

TEST_F(CompleteTest, ReopeningLeavesTheBadge)
{
    start({"One", "Two", "x Three"});
    EXPECT_EQ(linesOfSwipe(2),
        (Lines{"handlePan", "toDoItemDaModificare completed : true   Three", "true appiconbadge",
            "ArchiveResults", "Success writing to file!"}));
    EXPECT_EQ(takeFelt(), (Lines{"completa.mp3", "vibration"}));
    EXPECT_EQ(badge(), 2);
    EXPECT_EQ(saved(), (Lines{"One", "Two", "Three"}));
}

TEST_F(CompleteTest, WithoutTheBadgeOptionTheBadgeIsLeftAlone)
{
    restartWith("appIconBadge", "false");
    EXPECT_EQ(linesOfSwipe(0),
        (Lines{"handlePan", "toDoItemCambiaColoreALetto", "toDoItemDaModificare completed : false   One",
            "ArchiveResults", "Success writing to file!"}));
    swipe(1, -200);
    host.advance(1);
    tapWords(1);
    EXPECT_FALSE(list().tastieraAttiva);
    EXPECT_FALSE(host.effects().badge());
}

TEST_F(CompleteTest, SoundAndVibrationAreOptionsOfTheirOwn)
{
    restartWith("soundEffect", "True");
    swipe(0, 200);
    EXPECT_EQ(takeFelt(), (Lines{"vibration"}));
    set("soundEffect", "true");
    set("vibration", "false");
    list().viewWillAppear(false);
    host.advance(0.5);
    swipe(1, -200);
    EXPECT_EQ(takeFelt(), (Lines{"cancella.mp3"}));
}

using CompleteDeathTest = CompleteTest;

TEST_F(CompleteDeathTest, AMissingSoundIsFatal)
{
    start({"One"});
    host.files().setHidden("completa.mp3");
    EXPECT_DEATH(swipe(0, 200), "The sound completa.mp3 is missing");
}

} // namespace
} // namespace velmorath
