#include "Print.h"
#include "RowLook.h"
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
    return themeColor(theme, val);
}

CGColor ViewController::colorForFirstRow() const
{
    if (std::isnan(ramp(0, arrayNote.size())))
        print("❤️❤️❤️❤️❤️❤️ il valore è nan");
    return themeColor(theme, 0.0);
}

void ViewController::tableViewWillDisplayCellForRowAtIndexPath(
    UITableView&, UITableViewCell& cell, IndexPath path)
{
    print("tableView(tableView:");
    cell.setBackgroundColor(colorForIndex(path.row));
}

} // namespace velmorath
