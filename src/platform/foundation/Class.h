#pragma once

#include "Object.h"
#include "Registry.h"
#include <memory>

namespace velmorath {

/// A class that can be found by its name at run time. Only classes that somebody looks up that way
/// are entered.
struct Class {
    std::function<std::shared_ptr<Object>()> make;
    /// Whether an object is of this class or of one derived from it.
    std::function<bool(const Object&)> isKind;

    /// Nothing when no class of that name was entered.
    static const Class* named(std::string_view name) { return Registry<Class>::find(name); }

    /// Entering a name again replaces what stood there.
    template <typename T> static void enter(const std::string& name)
    {
        Registry<Class>::enter(name,
            {[] { return std::make_shared<T>(); },
                [](const Object& object) { return dynamic_cast<const T*>(&object) != nullptr; }});
    }
};

} // namespace velmorath
