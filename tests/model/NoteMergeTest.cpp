#include "NoteMerge.h"
#include <gtest/gtest.h>
#include <random>

namespace velmorath {
namespace {

using Lines = std::vector<std::string>;
using Notes = std::vector<std::shared_ptr<ToDoItem2>>;

/// "x " marks a completed note; what follows "@" is its date.
ToDoItem2 note(std::string line)
{
    ToDoItem2 note;
    note.completed = line.starts_with("x ");
    line.erase(0, note.completed ? 2 : 0);
    const std::size_t at = line.find('@');
    if (at != std::string::npos)
        note.data = line.substr(at + 1);
    note.text = line.substr(0, at);
    return note;
}

std::string lineOf(const ToDoItem2& note)
{
    return (note.completed ? "x " : "") + *note.text + (note.data ? "@" + *note.data : "");
}

Notes notesOf(const Lines& lines)
{
    Notes notes;
    for (const std::string& line : lines)
        notes.push_back(std::make_shared<ToDoItem2>(note(line)));
    return notes;
}

Lines merged(const Lines& base, const Lines& ours, const Lines& theirs)
{
    std::vector<ToDoItem2> known;
    for (const std::string& line : base)
        known.push_back(note(line));
    Lines lines;
    std::vector<bool> isTaken(ours.size());
    for (const auto& [place, note] : mergeNotes(known, notesOf(ours), notesOf(theirs))) {
        lines.push_back(lineOf(note));
        if (place) {
            EXPECT_FALSE(isTaken.at(*place)) << "it stands there twice: " << ours[*place];
            isTaken.at(*place) = true;
        }
    }
    return lines;
}

/// The same whichever side is ours.
void expectMerged(const Lines& base, const Lines& ours, const Lines& theirs, const Lines& expected)
{
    EXPECT_EQ(merged(base, ours, theirs), expected);
    EXPECT_EQ(merged(base, theirs, ours), expected);
}

const Lines base = {"milk", "bread", "eggs", "salt", "tea"};

TEST(NoteMergeTest, WhatEitherSideDidHolds)
{
    expectMerged(base, {"new", "milk", "bread", "eggs", "salt", "tea"},
        {"milk", "bread", "salt", "tea", "last"}, {"new", "milk", "bread", "salt", "tea", "last"});
    expectMerged(base, {"milk", "x bread", "eggs", "salt", "tea"},
        {"milk", "bread rolls", "eggs", "x salt", "tea"}, {"milk", "x bread rolls", "eggs", "x salt", "tea"});
    expectMerged(base, {"tea", "milk", "bread", "eggs", "salt"}, {"milk", "eggs", "bread", "salt", "x tea"},
        {"x tea", "milk", "eggs", "bread", "salt"});
    expectMerged({"milk@Monday"}, {"milk@Tuesday"}, {"x milk@Monday"}, {"x milk@Tuesday"});
    expectMerged({}, {"a", "b"}, {"b", "c"}, {"a", "b", "c"});
    expectMerged(base, base, {}, {});
}

TEST(NoteMergeTest, WhatBothChangedIsNotLost)
{
    expectMerged(base, {"milk", "white bread", "eggs", "salt", "tea"},
        {"milk", "x brown bread", "eggs", "salt", "tea"},
        {"milk", "x brown bread", "x white bread", "eggs", "salt", "tea"});
    expectMerged(base, {"milk", "eggs", "salt", "tea"}, {"milk", "bread rolls", "eggs", "salt", "tea"},
        {"milk", "bread rolls", "eggs", "salt", "tea"});
    expectMerged(base, {"milk", "eggs", "salt", "tea"}, {"milk", "x bread", "eggs", "salt", "tea"},
        {"milk", "x bread", "eggs", "salt", "tea"});
    // The same change is one change.
    expectMerged(base, {"both", "milk", "x bread", "green tea", "eggs", "salt"},
        {"both", "milk", "x bread", "green tea", "eggs", "salt"},
        {"both", "milk", "x bread", "green tea", "eggs", "salt"});
}

TEST(NoteMergeTest, NotesThatAreTheSameAreCounted)
{
    expectMerged({"a", "a"}, {"a", "a", "a"}, {"a", "a"}, {"a", "a", "a"});
    expectMerged({"a", "a", "a"}, {"a", "a"}, {"a", "a", "a"}, {"a", "a"});
    expectMerged({"a", "a"}, {"a", "x a"}, {"a", "a", "b"}, {"a", "x a", "b"});
    expectMerged({}, {"a", "a"}, {"a"}, {"a", "a"});
}

/// Random lists with many notes that are the same, and random changes on both sides.
TEST(NoteMergeTest, AnyChangesOfOneSideAreTakenAsTheyAre)
{
    std::mt19937 random(7);
    const auto upTo = [&](std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count)(random);
    };
    const auto anyNote = [&] { return (upTo(3) == 0 ? "x " : "") + std::string(upTo(3), 'a') + "b"; };
    const auto change = [&](Lines lines) {
        for (std::size_t changes = upTo(4); changes > 0; --changes) {
            const auto place = lines.begin() + static_cast<std::ptrdiff_t>(upTo(lines.size()));
            if (place == lines.end() || upTo(2) == 0) {
                lines.insert(place, anyNote());
            } else if (upTo(2) == 0) {
                lines.erase(place);
            } else if (upTo(1) == 0) {
                *place = anyNote();
            } else {
                std::swap(*place, lines[upTo(lines.size() - 1)]);
            }
        }
        return lines;
    };
    for (int round = 0; round < 500; ++round) {
        Lines before;
        for (std::size_t count = upTo(6); count > 0; --count)
            before.push_back(anyNote());
        const Lines ours = change(before);
        const Lines theirs = change(before);
        SCOPED_TRACE(round);
        expectMerged(before, ours, before, ours);
        expectMerged(before, ours, ours, ours);
        expectMerged(before, ours, theirs, merged(before, ours, theirs));
        // A text that is new on one side is there.
        const auto has = [](const Lines& lines, const std::string& line) {
            return std::any_of(lines.begin(), lines.end(),
                [&](const std::string& other) { return note(other).text == note(line).text; });
        };
        const Lines all = merged(before, ours, theirs);
        for (const Lines& side : {ours, theirs}) {
            for (const std::string& line : side)
                EXPECT_TRUE(has(before, line) || has(all, line)) << line;
        }
    }
}

} // namespace
} // namespace velmorath
