#include "ProgramFolders.h"
#include <filesystem>

namespace velmorath {

ProgramFolders ProgramFolders::find()
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
    if (fs::equivalent(folder, VELMORATH_BUILD_FOLDER, error))
        return {VELMORATH_SOURCE_RESOURCES, VELMORATH_BUILD_FOLDER "/velmorath-sound.so"};
    const fs::path resources = (folder / VELMORATH_RESOURCES_FROM_PROGRAM).lexically_normal();
    if (fs::exists(resources, error))
        return {
            resources, (folder / VELMORATH_LIBRARIES_FROM_PROGRAM / "velmorath-sound.so").lexically_normal()};
    return {VELMORATH_INSTALLED_RESOURCES, VELMORATH_INSTALLED_LIBRARIES "/velmorath-sound.so"};
}

} // namespace velmorath
