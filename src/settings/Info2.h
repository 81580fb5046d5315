#pragma once

#include "SettingsScreen.h"

namespace velmorath {

/// The options screen: three switches, drawn as checkmarks, and the way to the theme screen. A switch is
/// stored the moment it is tapped.
class Info2 : public SettingsScreen {
public:
    Info2();

    void viewDidLoad() override;
    void viewDidLayoutSubviews() override;

    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView&, IndexPath) override;
    void tableViewDidSelectRowAtIndexPath(UITableView&, IndexPath) override;
    void tableViewDidDeselectRowAtIndexPath(UITableView&, IndexPath) override;

    std::shared_ptr<UILabel> titolo;

private:
    /// Checked or not as its cell shows it: that, not what is stored, is turned round.
    void toggle(IndexPath);
    void switchBadge(bool on);
};

} // namespace velmorath
