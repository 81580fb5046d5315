#pragma once

#include "DrivenProgram.h"
#include <gtest/gtest.h>
#include <ostream>

namespace velmorath {

inline void PrintTo(const CGRect& rect, std::ostream* stream)
{
    *stream << "(" << rect.origin.x << ", " << rect.origin.y << ", " << rect.size.width << ", "
            << rect.size.height << ")";
}

inline void PrintTo(const CGColor& color, std::ostream* stream)
{
    *stream << "(" << color.red << ", " << color.green << ", " << color.blue << ", " << color.alpha << ")";
}

/// A test that drives the whole program.
class ListTest : public testing::Test, protected DrivenProgram { };

} // namespace velmorath
