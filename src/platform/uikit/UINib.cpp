#include "UINib.h"
#include "FatalError.h"
#include <map>

namespace velmorath {

namespace {

std::map<std::string, UINib, std::less<>>& nibs()
{
    static std::map<std::string, UINib, std::less<>> s_nibs;
    return s_nibs;
}

} // namespace

void UINib::enter(std::string name, Make make)
{
    nibs().insert_or_assign(std::move(name), UINib(std::move(make)));
}

const UINib& UINib::named(std::string_view name)
{
    const auto found = nibs().find(name);
    if (found == nibs().end())
        fatalError("There is no interface file named " + std::string(name));
    return found->second;
}

} // namespace velmorath
