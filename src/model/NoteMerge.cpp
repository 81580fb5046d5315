#include "NoteMerge.h"
#include <algorithm>
#include <array>
#include <list>
#include <map>
#include <string_view>
#include <tuple>

namespace velmorath {

namespace {

using Notes = std::vector<const ToDoItem2*>;
using Place = std::optional<std::size_t>;
using Text = std::optional<std::string_view>;
using Key = std::tuple<Text, Text, bool>;

Text textOf(const ToDoItem2& note)
{
    return note.text ? Text(*note.text) : std::nullopt;
}

Key keyOf(const ToDoItem2& note)
{
    return {textOf(note), note.data ? Text(*note.data) : std::nullopt, note.completed};
}

Key textKeyOf(const ToDoItem2& note)
{
    return {textOf(note), std::nullopt, false};
}

bool isSame(const ToDoItem2& a, const ToDoItem2& b)
{
    return keyOf(a) == keyOf(b);
}

/// Whether one can have become the other by editing: at least half of the shorter one is at the beginning and
/// the end of both.
bool isAlike(const ToDoItem2& a, const ToDoItem2& b)
{
    const auto [shorter, longer] = std::minmax({textOf(a).value_or(""), textOf(b).value_or("")},
        [](std::string_view x, std::string_view y) { return x.size() < y.size(); });
    const auto front = std::mismatch(shorter.begin(), shorter.end(), longer.begin()).first - shorter.begin();
    const auto back =
        std::mismatch(shorter.rbegin(), shorter.rend() - front, longer.rbegin()).first - shorter.rbegin();
    return 2 * static_cast<std::size_t>(front + back) >= shorter.size();
}

/// Finds the notes of one list in another one.
class Alignment {
public:
    Alignment(const Notes& from, const Notes& to)
        : m_from(from)
        , m_to(to)
        , m_places(from.size())
        , m_isTaken(to.size())
    {
        matchEnds();
        matchBy(keyOf);
        matchBy(textKeyOf);
        matchEdited();
    }

    /// For each note its place in the other list, if it is there.
    const std::vector<Place>& places() const { return m_places; }
    /// Whether the other list's note is one of this list.
    bool isKnown(std::size_t place) const { return m_isTaken[place]; }

private:
    void match(std::size_t from, std::size_t to)
    {
        m_places[from] = to;
        m_isTaken[to] = true;
    }

    /// Of notes that are the same several times the right one is found, where little has changed.
    void matchEnds()
    {
        const std::size_t shorter = std::min(m_from.size(), m_to.size());
        std::size_t front = 0;
        for (; front < shorter && isSame(*m_from[front], *m_to[front]); ++front)
            match(front, front);
        for (std::size_t back = 1; back <= shorter - front; ++back) {
            const std::size_t from = m_from.size() - back;
            const std::size_t to = m_to.size() - back;
            if (!isSame(*m_from[from], *m_to[to]))
                return;
            match(from, to);
        }
    }

    void matchBy(Key (*key)(const ToDoItem2&))
    {
        std::map<Key, std::vector<std::size_t>> places;
        for (std::size_t to = m_to.size(); to-- > 0;) {
            if (!m_isTaken[to])
                places[key(*m_to[to])].push_back(to);
        }
        for (std::size_t from = 0; from < m_from.size(); ++from) {
            const auto found = m_places[from] ? places.end() : places.find(key(*m_from[from]));
            if (found == places.end() || found->second.empty())
                continue;
            match(from, found->second.back());
            found->second.pop_back();
        }
    }

    void matchEdited()
    {
        for (std::size_t from = 0; from < m_from.size(); ++from) {
            if (from == 0)
                matchAlike(from, 0);
            else if (m_places[from - 1])
                matchAlike(from, *m_places[from - 1] + 1);
        }
        for (std::size_t from = m_from.size(); from-- > 0;) {
            const Place next = from + 1 < m_from.size() ? m_places[from + 1] : m_to.size();
            if (next && *next > 0)
                matchAlike(from, *next - 1);
        }
    }

    void matchAlike(std::size_t from, std::size_t to)
    {
        if (!m_places[from] && to < m_to.size() && !m_isTaken[to] && isAlike(*m_from[from], *m_to[to]))
            match(from, to);
    }

    const Notes& m_from;
    const Notes& m_to;
    std::vector<Place> m_places;
    std::vector<bool> m_isTaken;
};

/// One note, as it is in each list that has it.
struct Entry {
    const ToDoItem2* base = nullptr;
    std::array<Place, 2> places{};
    /// Whether each side left it where it was among the others.
    std::array<bool, 2> stays{};

    bool isOn(std::size_t side) const { return places[side].has_value(); }
    bool isFixed() const { return base && (!isOn(0) || stays[0]) && (!isOn(1) || stays[1]); }
    /// The side that says where it is, unless it stays where it was.
    std::size_t mover() const { return isOn(0) && (!stays[0] || !isOn(1)) ? 0 : 1; }
};

class Merge {
public:
    Merge(const Notes& base, const Notes& first, const Notes& second)
        : m_sides{first, second}
    {
        for (const ToDoItem2* const note : base)
            m_entries.push_back({note});
        for (std::size_t side = 0; side < 2; ++side) {
            m_entryAt[side].resize(m_sides[side].size());
            const Alignment alignment(base, m_sides[side]);
            for (std::size_t entry = 0; entry < base.size(); ++entry) {
                if (const Place place = alignment.places()[entry])
                    enter(entry, side, *place);
            }
            addUnknown(side, alignment);
            findStaying(side);
        }
    }

    /// The entries in their order. Those that were deleted are not among them.
    std::list<std::size_t> order() const
    {
        std::list<std::size_t> order;
        std::vector<std::list<std::size_t>::iterator> at(m_entries.size());
        for (std::size_t entry = 0; entry < m_entries.size(); ++entry) {
            if (!isGone(m_entries[entry]) && m_entries[entry].isFixed())
                at[entry] = order.insert(order.end(), entry);
        }
        // The others come after what they stand after on the side that put them there.
        for (std::size_t side = 0; side < 2; ++side) {
            auto next = order.begin();
            for (const std::size_t entry : m_entryAt[side]) {
                if (isGone(m_entries[entry]))
                    continue;
                const bool isFixed = m_entries[entry].isFixed();
                if (!isFixed && m_entries[entry].mover() == side)
                    next = std::next(at[entry] = order.insert(next, entry));
                else if (isFixed || !m_entries[entry].base)
                    next = std::next(at[entry]);
            }
        }
        return order;
    }

    const Entry& entry(std::size_t number) const { return m_entries[number]; }
    const ToDoItem2& note(const Entry& entry, std::size_t side) const
    {
        return *m_sides[side][*entry.places[side]];
    }
    bool isEdited(const Entry& entry, std::size_t side) const
    {
        return entry.base && entry.isOn(side) && textOf(note(entry, side)) != textOf(*entry.base);
    }
    bool isEditedTwice(const Entry& entry) const
    {
        return isEdited(entry, 0) && isEdited(entry, 1) && textOf(note(entry, 0)) != textOf(note(entry, 1));
    }

    /// What the note is now, with the text of this side where both have edited it.
    ToDoItem2 value(const Entry& entry, std::size_t side) const
    {
        if (!entry.base || !entry.isOn(0) || !entry.isOn(1))
            return note(entry, entry.isOn(0) ? 0 : 1);
        if (!isEditedTwice(entry)) {
            // Who edits a text gives it a date, too; it can be given a new one without being edited.
            const bool isDated = note(entry, 0).data != entry.base->data;
            side = isEdited(entry, 0) || (!isEdited(entry, 1) && isDated) ? 0 : 1;
        }
        ToDoItem2 value = note(entry, side);
        const bool isChanged = note(entry, 0).completed != entry.base->completed;
        value.completed = note(entry, isChanged ? 0 : 1).completed;
        return value;
    }

private:
    void enter(std::size_t entry, std::size_t side, std::size_t place)
    {
        m_entries[entry].places[side] = place;
        m_entryAt[side][place] = entry;
    }

    void addUnknown(std::size_t side, const Alignment& alignment)
    {
        for (std::size_t place = 0; place < m_sides[side].size(); ++place) {
            if (alignment.isKnown(place))
                continue;
            auto& same = m_added[keyOf(*m_sides[side][place])];
            const auto other = std::find_if(
                same.begin(), same.end(), [&](std::size_t entry) { return !m_entries[entry].isOn(side); });
            if (other == same.end()) {
                same.push_back(m_entries.size());
                m_entries.emplace_back();
                enter(m_entries.size() - 1, side, place);
            } else {
                enter(*other, side, place);
                same.erase(other);
            }
        }
    }

    /// Those that stay are the most that still follow each other as they did: the longest increasing
    /// subsequence of their places.
    void findStaying(std::size_t side)
    {
        struct Link {
            std::size_t entry;
            Place before;
        };
        std::vector<Link> links;
        // For each length the link that ends the subsequence with the lowest place.
        std::vector<std::size_t> ends;
        const auto placeOf = [&](std::size_t link) { return *m_entries[links[link].entry].places[side]; };
        for (std::size_t entry = 0; entry < m_entries.size() && m_entries[entry].base; ++entry) {
            if (!m_entries[entry].isOn(side))
                continue;
            const auto longer = std::lower_bound(ends.begin(), ends.end(), *m_entries[entry].places[side],
                [&](std::size_t link, std::size_t place) { return placeOf(link) < place; });
            links.push_back({entry, longer == ends.begin() ? Place() : *std::prev(longer)});
            if (longer == ends.end())
                ends.push_back(links.size() - 1);
            else
                *longer = links.size() - 1;
        }
        for (Place link = ends.empty() ? Place() : ends.back(); link; link = links[*link].before)
            m_entries[links[*link].entry].stays[side] = true;
    }

    /// One side has deleted it, and the other has not changed it.
    bool isGone(const Entry& entry) const
    {
        if (!entry.base || (entry.isOn(0) && entry.isOn(1)))
            return false;
        return (!entry.isOn(0) && !entry.isOn(1)) || isSame(note(entry, entry.isOn(0) ? 0 : 1), *entry.base);
    }

    const std::array<Notes, 2> m_sides;
    std::vector<Entry> m_entries;
    std::array<std::vector<std::size_t>, 2> m_entryAt;
    /// What was added and is not yet known to be on both sides.
    std::map<Key, std::vector<std::size_t>> m_added;
};

Notes pointersTo(const std::vector<std::shared_ptr<ToDoItem2>>& notes)
{
    Notes pointers;
    pointers.reserve(notes.size());
    for (const auto& note : notes)
        pointers.push_back(note.get());
    return pointers;
}

} // namespace

std::vector<MergedNote> mergeNotes(const std::vector<ToDoItem2>& base,
    const std::vector<std::shared_ptr<ToDoItem2>>& ours,
    const std::vector<std::shared_ptr<ToDoItem2>>& theirs)
{
    Notes known;
    known.reserve(base.size());
    for (const ToDoItem2& note : base)
        known.push_back(&note);
    const Notes own = pointersTo(ours);
    const Notes other = pointersTo(theirs);
    // Whichever side is ours, the first one is the same.
    const bool ownIsFirst = !std::lexicographical_compare(other.begin(), other.end(), own.begin(), own.end(),
        [](const ToDoItem2* a, const ToDoItem2* b) { return keyOf(*a) < keyOf(*b); });
    const std::size_t ownSide = ownIsFirst ? 0 : 1;

    const Merge merge(known, ownIsFirst ? own : other, ownIsFirst ? other : own);
    std::vector<MergedNote> merged;
    for (const std::size_t number : merge.order()) {
        const Entry& entry = merge.entry(number);
        if (merge.isEditedTwice(entry)) {
            for (std::size_t side = 0; side < 2; ++side)
                merged.push_back(
                    {side == ownSide ? entry.places[side] : std::nullopt, merge.value(entry, side)});
        } else {
            merged.push_back({entry.places[ownSide], merge.value(entry, 0)});
        }
    }
    return merged;
}

bool isSame(const std::vector<std::shared_ptr<ToDoItem2>>& notes, const std::vector<MergedNote>& merged)
{
    return std::equal(notes.begin(), notes.end(), merged.begin(), merged.end(),
        [](const auto& note, const auto& other) { return isSame(*note, other.note); });
}

} // namespace velmorath
