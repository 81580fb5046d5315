#pragma once

#include <cstdint>

namespace velmorath {

/// The place of a row in a table. Signed, as positions are computed with.
struct IndexPath {
    std::int64_t section = 0;
    std::int64_t row = 0;

    bool operator==(const IndexPath&) const = default;
};

} // namespace velmorath
