#pragma once

#include "Object.h"
#include "Registry.h"
#include <memory>
#include <vector>

namespace velmorath {

/// An interface file: views that are laid out apart from the code of the view or screen that holds them.
class UINib {
public:
    using Objects = std::vector<std::shared_ptr<Object>>;
    /// Makes the top-level objects and connects the owner's outlets and actions.
    using Make = std::function<Objects(Object& owner)>;

    /// Makes the file known under this name; a name that is known already stands for this one from now on.
    static void enter(std::string name, Make make)
    {
        Registry<UINib>::enter(std::move(name), UINib(std::move(make)));
    }
    /// It is fatal when none was entered under that name.
    static const UINib& named(std::string_view);

    explicit UINib(Make make)
        : m_make(std::move(make))
    {
    }

    /// New objects with each call.
    Objects instantiate(Object& owner) const { return m_make(owner); }

private:
    Make m_make;
};

} // namespace velmorath
