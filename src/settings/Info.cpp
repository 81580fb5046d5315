#include "Info.h"
#include "Bundle.h"
#include "Configuration.h"
#include "NFXIntroViewController.h"
#include "Print.h"
#include "UIAlertController.h"
#include "UIApplication.h"
#include "UIDevice.h"

namespace velmorath {

namespace {

std::vector<std::string> rowTitles()
{
    Bundle& bundle = Bundle::main();
    return {bundle.localizedString("Contact Us"), bundle.localizedString("Rate App"),
        bundle.localizedString("Watch tutorial"), bundle.localizedString("Settings"),
        bundle.localizedString("Privacy policy")};
}

void open(std::string address)
{
    if (const auto url = URL::parse(std::move(address)))
        UIApplication::shared().openURL(*url);
}

std::string reviewPage()
{
    return "itms-apps://" + std::string(configuration::storeHost) + "/app/apple-store/id"
        + std::string(configuration::storeIdentifier) + "?action=write-review";
}

/// Empty when the bundle has none.
std::string applicationName()
{
    const PropertyList::Dictionary& information = Bundle::main().infoDictionary();
    for (const char* key : {"CFBundleDisplayName", "CFBundleName"}) {
        const auto entry = information.find(key);
        const std::string* name = entry == information.end() ? nullptr : entry->second.string();
        if (name) {
            print("Nome dell'app: " + *name);
            return *name;
        }
    }
    return "";
}

} // namespace

Info::Info()
    : SettingsScreen(rowTitles())
{
}

void Info::prepareForSegue(UIStoryboardSegue& segue, const std::any&)
{
    segue.destination.performSegue("info2", shared_from_this());
}

std::shared_ptr<UITableViewCell> Info::tableViewCellForRowAtIndexPath(UITableView& list, IndexPath path)
{
    return makeCell(list, path);
}

void Info::tableViewDidSelectRowAtIndexPath(UITableView& list, IndexPath path)
{
    print("You selected cell #" + std::to_string(path.row) + "!");
    giveTapFeedback();
    switch (path.row) {
    case 0:
        contactMakers();
        break;
    case 1:
        print("----- richiedo recenzione app");
        open(reviewPage());
        list.deselectRow(path);
        break;
    case 2:
        presentTutorial(*this, *this);
        break;
    case 3:
        presentScreen("Info2");
        break;
    default:
        open(std::string(configuration::privacyPage));
        list.deselectRow(path);
    }
}

void Info::contactMakers()
{
    const std::shared_ptr<MFMailComposeViewController> composer = makeMailComposer();
    if (MFMailComposeViewController::canSendMail())
        present(composer, true);
    else
        showSendMailErrorAlert();
}

std::shared_ptr<MFMailComposeViewController> Info::makeMailComposer()
{
    auto composer = std::make_shared<MFMailComposeViewController>();
    composer->setMailComposeDelegate(this);
    composer->setToRecipients({std::string(configuration::contactAddress)});
    const UIDevice device = UIDevice::current();
    composer->setMessageBody(device.model() + "," + device.name() + "," + device.systemName() + ","
        + device.systemVersion() + "   " + applicationName() + "  " + "Free");
    return composer;
}

void Info::showSendMailErrorAlert()
{
    const auto alert = std::make_shared<UIAlertController>("Could Not Send Email",
        "Your device could not send e-mail.  Please check e-mail configuration and try again.");
    alert->addAction({"OK", UIAlertActionStyle::standard, {}});
    present(alert, true);
}

void Info::mailComposeControllerDidFinishWithResult(
    MFMailComposeViewController& composer, MFMailComposeResult)
{
    composer.dismiss(true);
}

void Info::chiusoTutorial()
{
    print("chiusoTutorial");
}

} // namespace velmorath
