#pragma once

#include "PropertyList.h"
#include "Result.h"
#include <string_view>

namespace velmorath {

std::string binaryPropertyList(const PropertyList&);

/// Takes any bytes. An error when they are damaged, nested too deep, refer to themselves, or would become
/// much larger in memory than they are.
Result<PropertyList> parseBinaryPropertyList(std::string_view bytes);

} // namespace velmorath
