#include "UserFolders.h"
#include <cstdlib>

namespace velmorath::UserFolders {

namespace {

std::optional<std::string> absolutePath(const char* variable)
{
    const char* path = std::getenv(variable);
    return path && *path == '/' ? std::optional<std::string>(path) : std::nullopt;
}

std::optional<std::string> ownFolder(const char* variable, const char* placeInHome)
{
    if (const auto folder = absolutePath(variable))
        return *folder + "/velmorath";
    if (const auto home = absolutePath("HOME"))
        return *home + placeInHome + "/velmorath";
    return {};
}

} // namespace

std::optional<std::string> data()
{
    return ownFolder("XDG_DATA_HOME", "/.local/share");
}

std::optional<std::string> configuration()
{
    return ownFolder("XDG_CONFIG_HOME", "/.config");
}

std::optional<std::string> runtime()
{
    return absolutePath("XDG_RUNTIME_DIR");
}

} // namespace velmorath::UserFolders
