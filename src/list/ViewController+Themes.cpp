#include "Print.h"
#include "ViewController.h"
#include <cmath>

namespace velmorath {

namespace {

/// How far down the list a row is, from 0.0 to 0.6; not a number when there is only one.
double ramp(std::int64_t index, std::size_t count)
{
    return static_cast<double>(index) / (static_cast<double>(count) - 1) * 0.6;
}

} // namespace

CGColor ViewController::colorForIndex(std::int64_t index) const
{
    print("😝😝😝😝😝😝   colorForIndex: " + std::to_string(index));
    double val = ramp(index, arrayNote.size());
    print("val : " + description(val));
    print("----- val : " + description(val));
    if (std::isnan(val)) {
        print("❤️❤️❤️❤️❤️❤️ il valore è nan");
        val = 0.0;
    }
    if (theme == "Red")
        print("---- 😝 😝 😝 😝 rosso val : " + description(val));
    return themeColor(val);
}

CGColor ViewController::themeColor(double val) const
{
    if (theme == "Red")
        return {1.0, val, 0.0, 1.0};
    if (theme == "Green")
        return {0.0, 0.5, val, 1.0};
    if (theme == "Violet")
        return {3.0, val, 3.0, 1.0};
    if (theme == "Blue")
        return {0.0, val, 1.0, 1.0};
    if (theme == "Yellow")
        return {0.87, 0.76, val, 1.0};
    if (theme == "Mixed")
        return {val, 0.2, val, 1.0};
    if (theme == "Black")
        return {val, val, val, 1.0};
    return UIColor::black();
}

CGColor ViewController::colorForFirstRow() const
{
    if (std::isnan(ramp(0, arrayNote.size())))
        print("❤️❤️❤️❤️❤️❤️ il valore è nan");
    return themeColor(0.0);
}

void ViewController::tableViewWillDisplayCellForRowAtIndexPath(
    UITableView&, UITableViewCell& cell, IndexPath path)
{
    print("tableView(tableView:");
    cell.setBackgroundColor(colorForIndex(path.row));
}

} // namespace velmorath
