#pragma once

#include <string>

namespace velmorath {

/// Today, in UTC, as a note shows it.
std::string ottieniData();

} // namespace velmorath
