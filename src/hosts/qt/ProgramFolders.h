#pragma once

#include <string>

namespace velmorath {

/// Where the program's own files are. In the tree where it was built they are those of the source tree;
/// elsewhere it was installed, and they lie in `../share/velmorath` and the library folder beside the
/// folder of the executable, so that a whole prefix can be moved. When they are not there, they are
/// looked for where the build was told to install.
struct ProgramFolders {
    std::string resources;
    std::string soundLibrary;

    static ProgramFolders find();
};

} // namespace velmorath
