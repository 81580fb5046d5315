#pragma once

#include "Settings.h"
#include "UILabel.h"
#include "UITableView.h"
#include "UIViewController.h"
#include <string>
#include <vector>

namespace velmorath {

/// What the information, options and theme screens have in common: a table of a few fixed rows on black,
/// tinted in the theme's colours, each tap on which is heard and felt as the options say.
class SettingsScreen : public UIViewController, public UITableViewDataSource, public UITableViewDelegate {
public:
    explicit SettingsScreen(std::vector<std::string> titles)
        : items(std::move(titles))
    {
    }

    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;
    void viewDidLayoutSubviews() override;

    /// The close button.
    void chiudi();
    /// Closes.
    bool escapePressed() override;

    std::int64_t numberOfSectionsInTableView(UITableView&) override { return 1; }
    std::int64_t tableViewNumberOfRowsInSection(UITableView&, std::int64_t section) override;
    CGFloat tableViewHeightForRowAtIndexPath(UITableView&, IndexPath) override { return kRowHeight; }
    void tableViewWillDisplayCellForRowAtIndexPath(UITableView&, UITableViewCell&, IndexPath) override;

    std::string soundEffect;
    std::string vibration;
    /// The rows' titles.
    std::vector<std::string> items;
    std::weak_ptr<UITableView> tabella;
    SettingsDictionary dizionarioSettaggi;
    const double kRowHeight = 60.0;

protected:
    /// The table. That the storyboard has not connected it is fatal.
    std::shared_ptr<UITableView> table() const;
    /// The title of a row. It is fatal when there is no such row.
    const std::string& item(std::int64_t row) const;
    /// A row with its title and its sheen. A row that is used again gets one more layer of sheen each time.
    std::shared_ptr<UITableViewCell> makeCell(UITableView&, IndexPath);
    bool isOn(std::string_view key) const { return setting(dizionarioSettaggi, key) == "true"; }
    void giveTapFeedback() const;
    /// Shows a text as the screen's title. It is fatal when the storyboard has not connected the label.
    static void showTitle(const std::shared_ptr<UILabel>&, std::string_view localizationKey);
    /// Opens another screen of the storyboard "Main".
    void presentScreen(std::string_view identifier);

private:
    CGRect sheenFrame();
    CGColor colorForIndex(std::int64_t index) const;
};

} // namespace velmorath
