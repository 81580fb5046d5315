#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace velmorath {

/// What a note was at one time: its place in the list, if it was in it, and what it held.
struct NoteState {
    std::optional<std::int64_t> place;
    std::optional<std::string> text;
    std::optional<std::string> data;
    bool completed = false;

    bool operator==(const NoteState&) const = default;
};

} // namespace velmorath
