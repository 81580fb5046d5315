#pragma once

namespace velmorath {

/// Makes the storyboard "Main" known: all screens of the program and the ways between them.
void enterMainStoryboard();

} // namespace velmorath
