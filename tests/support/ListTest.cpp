#include "ListTest.h"
#include "Bundle.h"
#include "CATimeline.h"
#include "KeyedArchiver.h"
#include "Main.h"
#include "ProgramState.h"
#include "UIApplication.h"
#include <filesystem>

namespace velmorath {

namespace {

constexpr std::string_view completedMark = "x ";

} // namespace

ListTest::ListTest()
{
    testing::FLAGS_gtest_death_test_style = "fast";
    host.screen().setSize({320, 536});
    forgetProgramState();
}

ListTest::~ListTest()
{
    host.quit();
    forgetProgramState();
}

void ListTest::start(const Lines& texts, const std::string& theme)
{
    UserDefaults& defaults = UserDefaults::standard();
    if (!defaults.object(settingsKey))
        defaults.setObject(settingsKey, defaultSettings(theme));
    defaults.setBool("HasLaunchedOnce", true);
    defaults.setObject("primoAvvioApp7", "No");
    defaults.setObject("nuovaNota", "No");
    defaults.synchronize();
    KeyedArchiver::archiveRootObject(
        notesFrom(texts), archivePath(host), [](bool success) { EXPECT_TRUE(success); });
    launch();
    takeLines();
}

std::vector<std::shared_ptr<ToDoItem2>> ListTest::notesFrom(const Lines& texts)
{
    std::vector<std::shared_ptr<ToDoItem2>> notes;
    for (const std::string& text : texts) {
        notes.push_back(std::make_shared<ToDoItem2>());
        notes.back()->completed = text.starts_with(completedMark);
        notes.back()->text = text.substr(notes.back()->completed ? completedMark.size() : 0);
    }
    return notes;
}

Lines ListTest::numbers(int count)
{
    Lines texts;
    for (int i = 0; i < count; ++i)
        texts.push_back(std::to_string(i));
    return texts;
}

void ListTest::launch()
{
    host.quit();
    velmorath::main(0, nullptr);
    host.advance(0.1);
}

void ListTest::relaunch()
{
    host.quit();
    forgetProgramState();
    host.console().clear();
    launch();
}

ViewController& ListTest::list() const
{
    return static_cast<ViewController&>(*UIApplication::shared().keyWindow()->rootViewController());
}

std::vector<std::shared_ptr<TableViewCell>> ListTest::rows() const
{
    std::vector<std::shared_ptr<TableViewCell>> found;
    table().layoutIfNeeded();
    for (const auto& cell : table().visibleCells())
        found.push_back(std::static_pointer_cast<TableViewCell>(cell));
    return found;
}

TableViewCell& ListTest::row(std::size_t place) const
{
    return *rows().at(place);
}

Lines ListTest::textsOf(const std::vector<std::shared_ptr<ToDoItem2>>& notes)
{
    Lines texts;
    for (const auto& note : notes)
        texts.push_back((note->completed ? std::string(completedMark) : "") + note->text.value_or("(none)"));
    return texts;
}

Lines ListTest::shown() const
{
    std::vector<std::shared_ptr<ToDoItem2>> notes;
    for (const auto& cell : rows())
        notes.push_back(cell->toDoItem());
    return textsOf(notes);
}

Lines ListTest::saved()
{
    const auto notes = savedNotes(host);
    return notes ? textsOf(*notes) : Lines{"no list"};
}

Lines ListTest::filesInDocuments()
{
    Lines names;
    for (const auto& entry : std::filesystem::directory_iterator(*host.files().documentDirectory()))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

void ListTest::set(const std::string& key, const std::string& value)
{
    UserDefaults& defaults = UserDefaults::standard();
    const SettingsDictionary* stored = defaults.dictionary(settingsKey);
    SettingsDictionary settings = stored ? *stored : defaultSettings("Blue");
    settings.insert_or_assign(key, value);
    defaults.setObject(settingsKey, settings);
    defaults.synchronize();
}

void ListTest::failOn(HeadlessFiles::Operation failing)
{
    host.files().setFault([failing](HeadlessFiles::Operation operation, const std::string&) {
        return operation == failing ? std::optional(Error{"input/output error"}) : std::nullopt;
    });
}

Lines ListTest::takeLines(const std::string& containing)
{
    Lines found;
    for (const std::string& line : host.console().lines()) {
        if (line.find(containing) != std::string::npos)
            found.push_back(line);
    }
    host.console().clear();
    return found;
}

Lines ListTest::takeFelt()
{
    Lines felt = host.effects().felt();
    host.effects().clearFelt();
    return felt;
}

std::size_t ListTest::countLines(const std::string& line)
{
    const Lines& lines = host.console().lines();
    return static_cast<std::size_t>(std::count(lines.begin(), lines.end(), line));
}

void ListTest::tap(CGPoint point)
{
    Finger finger(host, point);
    host.advance(0.05);
    finger.lift();
    host.advance(0.05);
}

Finger ListTest::beginSwipe(std::size_t place, CGFloat points)
{
    Finger finger(host, {points > 0 ? 20.0 : 300.0, place * 60.0 + 30});
    finger.moveBy({points, 0});
    return finger;
}

void ListTest::leavePresented()
{
    host.advance(0.5);
    presented()->dismiss(false);
}

void ListTest::swipe(std::size_t place, CGFloat points)
{
    beginSwipe(place, points).lift();
}

Finger ListTest::beginPull(CGFloat depth)
{
    Finger finger(host, {200, 10});
    finger.moveBy({0, 10}, 1);
    movePull(finger, depth);
    return finger;
}

void ListTest::movePull(Finger& finger, CGFloat depth)
{
    // The list gives less and less: the inverse of its rubber band. The first ten points start the drag.
    constexpr CGFloat stiffness = 0.55;
    const CGFloat length = table().bounds().size.height;
    const CGFloat way = (length / (length - depth) - 1) * length / stiffness;
    finger.moveTo({200, 20 + way});
}

void ListTest::scroll(CGFloat points)
{
    Finger finger(host, {200, points < 0 ? 460.0 : 20.0});
    finger.moveBy({0, points < 0 ? -10.0 : 10.0}, 1);
    finger.moveBy({0, points});
    finger.hold();
    finger.lift();
    host.advance(0.05);
}

void ListTest::type(const std::string& text)
{
    host.textInput().replaceText(text);
    host.textInput().pressReturn();
}

} // namespace velmorath
