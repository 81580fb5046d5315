#include "Print.h"
#include "RowLook.h"
#include "ViewController.h"
#include <cmath>

namespace velmorath {

CGColor ViewController::colorForIndex(std::int64_t index) const
{
    print("😝😝😝😝😝😝   colorForIndex: " + std::to_string(index));
    double val = rowRamp(index, arrayNote.size());
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
    if (std::isnan(rowRamp(0, arrayNote.size())))
        print("❤️❤️❤️❤️❤️❤️ il valore è nan");
    return themeColor(theme, 0.0);
}

void ViewController::tableViewWillDisplayCellForRowAtIndexPath(
    UITableView&, UITableViewCell& cell, IndexPath path)
{
    print("tableView(tableView:");
    cell.setBackgroundColor(colorForIndex(path.row));
    if (tastieraAttiva)
        UIView::performWithoutAnimation([&] { giveWay(static_cast<TableViewCell&>(cell)); });
}

} // namespace velmorath
