#pragma once

#include "PropertyList.h"
#include <string>
#include <string_view>

namespace velmorath {

/// Writes one diagnostic line. The text is UTF-8, without the line break.
void print(std::string_view line);

/// The shortest text that reads back as the same number, with a decimal point or an exponent always
/// there: "0.0", "0.2", "1e+16", "nan", "-inf".
std::string description(double);

/// "key = value;" lines, sorted by key, between braces.
std::string description(const PropertyList::Dictionary&);

} // namespace velmorath
