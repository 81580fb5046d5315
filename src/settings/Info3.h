#pragma once

#include "SettingsScreen.h"

namespace velmorath {

/// The theme screen: a row for each theme, with a checkmark on the chosen one. A theme is stored the moment
/// it is tapped.
class Info3 : public SettingsScreen {
public:
    Info3();

    void viewDidLoad() override;
    void viewDidLayoutSubviews() override;

    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView&, IndexPath) override;
    void tableViewDidSelectRowAtIndexPath(UITableView&, IndexPath) override;

    std::shared_ptr<UILabel> titolo;
};

} // namespace velmorath
