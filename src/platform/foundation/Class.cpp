#include "Class.h"
#include <map>

namespace velmorath {

namespace {

std::map<std::string, Class, std::less<>>& classes()
{
    static std::map<std::string, Class, std::less<>> s_classes;
    return s_classes;
}

} // namespace

const Class* Class::named(std::string_view name)
{
    const auto found = classes().find(name);
    return found == classes().end() ? nullptr : &found->second;
}

void Class::enter(std::string name, Class entered)
{
    classes().insert_or_assign(std::move(name), std::move(entered));
}

} // namespace velmorath
