#pragma once

#include <map>
#include <string>
#include <string_view>

namespace velmorath {

using StringsTable = std::map<std::string, std::string, std::less<>>;

/// Reads lines such as `"key" = "value";` with comments between them. A text ends in the line in which
/// it begins; \" \\ \n \t and \u followed by four hexadecimal digits stand for what cannot be written
/// otherwise. A line that cannot be read is left out, the others count.
StringsTable parseStringsTable(std::string_view utf8);

} // namespace velmorath
