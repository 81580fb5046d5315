#pragma once

#include "MFMailComposeViewController.h"
#include "SettingsScreen.h"
#include "delegatoTutorialChiuso.h"

namespace velmorath {

/// The information screen: five rows that lead to the makers, to the store, to the tutorial, to the options
/// and to the privacy page.
class Info : public SettingsScreen,
             public MFMailComposeViewControllerDelegate,
             public delegatoTutorialChiuso {
public:
    Info();

    void prepareForSegue(UIStoryboardSegue&, const std::any& sender) override;

    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView&, IndexPath) override;
    void tableViewDidSelectRowAtIndexPath(UITableView&, IndexPath) override;
    void mailComposeControllerDidFinishWithResult(MFMailComposeViewController&, MFMailComposeResult) override;
    void chiusoTutorial() override;

private:
    void contactMakers();
    std::shared_ptr<MFMailComposeViewController> makeMailComposer();
    void showSendMailErrorAlert();
};

} // namespace velmorath
