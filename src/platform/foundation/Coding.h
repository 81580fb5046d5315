#pragma once

#include <string_view>

namespace velmorath {

class KeyedArchiver;

/// Something that can write itself into an archive.
class Coding {
public:
    virtual ~Coding() = default;

    /// The name by which a reader knows the class. Lives as long as the program.
    virtual std::string_view archivedClassName() const = 0;

    virtual void encode(KeyedArchiver&) const = 0;
};

} // namespace velmorath
