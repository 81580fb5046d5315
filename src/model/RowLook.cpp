#include "RowLook.h"

namespace velmorath {

double rowRamp(std::int64_t index, std::size_t count)
{
    return static_cast<double>(index) / (static_cast<double>(count) - 1) * 0.6;
}

CGColor themeColor(std::string_view theme, double value)
{
    if (theme == "Red")
        return {1.0, value, 0.0, 1.0};
    if (theme == "Green")
        return {0.0, 0.5, value, 1.0};
    if (theme == "Violet")
        return {3.0, value, 3.0, 1.0};
    if (theme == "Blue")
        return {0.0, value, 1.0, 1.0};
    if (theme == "Yellow")
        return {0.87, 0.76, value, 1.0};
    if (theme == "Mixed")
        return {value, 0.2, value, 1.0};
    if (theme == "Black")
        return {value, value, value, 1.0};
    return CGColor::gray(0.0);
}

CGGradient rowSheen()
{
    return {
        {CGColor::gray(1.0, 0.2), CGColor::gray(1.0, 0.1), CGColor::gray(0.0, 0.0), CGColor::gray(0.0, 0.1)},
        {0.0, 0.01, 0.95, 1.0}};
}

} // namespace velmorath
