#include "DrivenProgram.h"
#include "Bundle.h"
#include "CATimeline.h"
#include "KeyedArchiver.h"
#include "Main.h"
#include "Print.h"
#include "RowLook.h"
#include "UIApplication.h"
#include <cmath>
#include <cstdlib>
#include <filesystem>

namespace velmorath {

namespace {

constexpr std::string_view completedMark = "x ";

// As loadSettings(), but the program says nothing of it.
SettingsDictionary storedSettingsOr(const std::string& theme)
{
    const SettingsDictionary* stored = UserDefaults::standard().dictionary(settingsKey);
    return stored ? *stored : defaultSettings(theme);
}

} // namespace

DrivenProgram::DrivenProgram()
{
    host.screen().setSize({320, 536});
    forgetState();
}

DrivenProgram::~DrivenProgram()
{
    host.quit();
    forgetState();
}

void DrivenProgram::put(const Notes& notes, const SettingsDictionary& settings)
{
    UserDefaults& defaults = UserDefaults::standard();
    defaults.setBool("HasLaunchedOnce", true);
    defaults.setObject("primoAvvioApp7", "No");
    defaults.setObject("nuovaNota", "No");
    saveSettings(settings);
    KeyedArchiver::archiveRootObject(notes, archivePath(), [](bool success) {
        if (!success)
            std::abort();
    });
}

void DrivenProgram::start(const Lines& texts, const std::string& theme)
{
    put(notesFrom(texts), storedSettingsOr(theme));
    launch();
    takeLines();
}

Notes DrivenProgram::notesFrom(const Lines& texts)
{
    Notes notes;
    for (const std::string& text : texts) {
        notes.push_back(std::make_shared<ToDoItem2>());
        notes.back()->completed = text.starts_with(completedMark);
        notes.back()->text = text.substr(notes.back()->completed ? completedMark.size() : 0);
    }
    return notes;
}

Lines DrivenProgram::numbers(int count)
{
    Lines texts;
    for (int i = 0; i < count; ++i)
        texts.push_back(std::to_string(i));
    return texts;
}

void DrivenProgram::launch()
{
    host.quit();
    velmorath::main(0, nullptr);
    host.advance(0.1);
}

void DrivenProgram::relaunch()
{
    host.quit();
    forgetState();
    host.console().clear();
    launch();
}

void DrivenProgram::forgetState()
{
    UserDefaults::standard().reset();
    Bundle::main().reset();
    CATimeline::main().reset();
}

ViewController& DrivenProgram::list() const
{
    return static_cast<ViewController&>(*UIApplication::shared().keyWindow()->rootViewController());
}

std::vector<std::shared_ptr<TableViewCell>> DrivenProgram::rows() const
{
    std::vector<std::shared_ptr<TableViewCell>> found;
    table().layoutIfNeeded();
    for (const auto& cell : table().visibleCells())
        found.push_back(std::static_pointer_cast<TableViewCell>(cell));
    return found;
}

std::string DrivenProgram::rounded(CGFloat value)
{
    return description(std::round(value * 100) / 100);
}

Lines DrivenProgram::oddities(const TableViewCell& row)
{
    const CALayerState shown = row.layer().presented(host.clock().now());
    const ToDoItem2& note = *row.toDoItem();
    const std::int64_t index = *table().placeOf(row);
    const double ramp = rowRamp(index, list().arrayNote.size());
    const CGFloat width = table().bounds().size.width;
    const CGFloat aside = shown.position.x + shown.transform.tx - width / 2;
    const CGFloat below = shown.position.y + shown.transform.ty - (static_cast<CGFloat>(index) * 60 + 30);
    Lines odd;
    const auto tell = [&odd](bool isOdd, const std::string& what) {
        if (isOdd)
            odd.push_back(what);
    };
    tell(aside != 0, ">" + rounded(aside));
    tell(below != 0, "v" + rounded(below));
    tell(shown.opacity != 1, "%" + rounded(shown.opacity));
    tell(row.backgroundColor() != themeColor(list().theme, std::isnan(ramp) ? 0 : ramp), "~");
    tell(row.isHidden(), "hidden");
    tell(row.bounds().size != CGSize{width, 60}, "of another size");
    tell(!row.isUserInteractionEnabled(), "dead");
    const bool isStruck = row.label->strikeThrough();
    tell(isStruck != note.completed || row.itemCompleteLayer->isHidden() == isStruck,
        isStruck ? "struck through" : "not struck through");
    return odd;
}

Lines DrivenProgram::textsOf(const Notes& notes)
{
    Lines texts;
    for (const auto& note : notes)
        texts.push_back((note->completed ? std::string(completedMark) : "") + note->text.value_or("(none)"));
    return texts;
}

Lines DrivenProgram::saved()
{
    const auto notes = savedNotes();
    return notes ? textsOf(*notes) : Lines{"no list"};
}

std::optional<Notes> DrivenProgram::savedNotes()
{
    const Result<std::string> bytes = host.files().read(archivePath());
    if (!bytes)
        return {};
    const Result<Notes> notes = archivedNotes(*bytes);
    return notes ? std::optional(*notes) : std::nullopt;
}

std::string DrivenProgram::archivePath()
{
    return *host.files().documentDirectory() + "/noteSalvate.archive";
}

Lines DrivenProgram::filesInDocuments()
{
    Lines names;
    for (const auto& entry : std::filesystem::directory_iterator(*host.files().documentDirectory()))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

void DrivenProgram::set(const std::string& key, const std::string& value)
{
    SettingsDictionary settings = storedSettingsOr("Blue");
    settings.insert_or_assign(key, value);
    saveSettings(settings);
}

void DrivenProgram::failOn(HeadlessFiles::Operation failing)
{
    host.files().setFault([failing](HeadlessFiles::Operation operation, const std::string&) {
        return operation == failing ? std::optional(Error{"input/output error"}) : std::nullopt;
    });
}

Lines DrivenProgram::takeLines(const std::string& containing)
{
    Lines found;
    for (const std::string& line : host.console().lines()) {
        if (line.find(containing) != std::string::npos)
            found.push_back(line);
    }
    host.console().clear();
    return found;
}

Lines DrivenProgram::takeFelt()
{
    Lines felt = host.effects().felt();
    host.effects().clearFelt();
    return felt;
}

std::size_t DrivenProgram::countLines(const std::string& line)
{
    const Lines& lines = host.console().lines();
    return static_cast<std::size_t>(std::count(lines.begin(), lines.end(), line));
}

void DrivenProgram::tap(CGPoint point)
{
    Finger finger(host, point);
    host.advance(0.05);
    finger.lift();
    host.advance(0.05);
}

Finger DrivenProgram::beginSwipe(std::size_t place, CGFloat points)
{
    Finger finger(host, {points > 0 ? 20.0 : 300.0, place * 60.0 + 30});
    finger.moveBy({points, 0});
    return finger;
}

Finger DrivenProgram::beginPull(CGFloat depth)
{
    Finger finger(host, {200, 10});
    finger.moveBy({0, 10}, 1);
    movePull(finger, depth);
    return finger;
}

void DrivenProgram::movePull(Finger& finger, CGFloat depth)
{
    // The list gives less and less: the inverse of its rubber band. The first ten points start the drag.
    constexpr CGFloat stiffness = 0.55;
    const CGFloat length = table().bounds().size.height;
    const CGFloat way = (length / (length - depth) - 1) * length / stiffness;
    finger.moveTo({200, 20 + way});
}

void DrivenProgram::scroll(CGFloat points)
{
    Finger finger(host, {200, points < 0 ? 460.0 : 20.0});
    finger.moveBy({0, points < 0 ? -10.0 : 10.0}, 1);
    finger.moveBy({0, points});
    finger.hold();
    finger.lift();
    host.advance(0.05);
}

void DrivenProgram::type(const std::string& text)
{
    host.textInput().replaceText(text);
    host.textInput().pressReturn();
}

void DrivenProgram::tapAndWait(CGPoint point)
{
    tap(point);
    host.advance(0.5);
}

void DrivenProgram::openInformation()
{
    const CGSize size = host.screen().size();
    tapAndWait({size.width - 28, size.height - 28});
}

void DrivenProgram::openOptions()
{
    openInformation();
    tapRow(3);
}

void DrivenProgram::openThemes()
{
    openOptions();
    tapRow(3);
}

void DrivenProgram::tapRow(std::size_t place)
{
    tapAndWait({160, 56 + place * 60.0 + 30});
}

void DrivenProgram::close()
{
    tapAndWait({28, 28});
}

} // namespace velmorath
