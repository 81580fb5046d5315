#pragma once

#include "FatalError.h"
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace velmorath {

/// Things of one kind that are found by their names at run time.
template <typename T> class Registry {
public:
    /// Entering a name again replaces what stood there, in its place.
    static T& enter(std::string name, T thing)
    {
        return entries().insert_or_assign(std::move(name), std::move(thing)).first->second;
    }

    /// Null when nothing has that name.
    static const T* find(std::string_view name)
    {
        const auto found = entries().find(name);
        return found == entries().end() ? nullptr : &found->second;
    }

    /// It is fatal when nothing has that name; `kind` says in the message what was looked for.
    static const T& named(std::string_view name, std::string_view kind)
    {
        if (const T* found = find(name))
            return *found;
        fatalError("There is no " + std::string(kind) + " named " + std::string(name));
    }

private:
    static std::map<std::string, T, std::less<>>& entries()
    {
        static std::map<std::string, T, std::less<>> s_entries;
        return s_entries;
    }
};

} // namespace velmorath
