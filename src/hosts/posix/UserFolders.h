#pragma once

#include <optional>
#include <string>

namespace velmorath {

/// Where the desktop's customs (XDG) put what a program keeps for its user: folders that are named in the
/// environment, or their usual places in HOME. Relative paths are ignored, as the customs ask; nothing when
/// there is no absolute one. The folders need not exist yet.
namespace UserFolders {

std::optional<std::string> data();
std::optional<std::string> configuration();

/// The session's own one, which the machine makes and this program shares with others; it has no usual place.
std::optional<std::string> runtime();

} // namespace UserFolders

} // namespace velmorath
