#pragma once

#include "UIApplication.h"

namespace velmorath {

class ViewController;

/// Prepares the settings at the first launch. Leaves everything else to the screens: the list saves
/// each change when it is made, so nothing is left to do when the program goes out of sight or ends.
class AppDelegate : public UIResponder, public UIApplicationDelegate {
public:
    bool applicationDidFinishLaunchingWithOptions(
        UIApplication&, const std::map<std::string, std::any>& launchOptions) override;
    void applicationWillResignActive(UIApplication&) override { }
    void applicationDidEnterBackground(UIApplication&) override { }
    void applicationWillEnterForeground(UIApplication&) override { }
    void applicationDidBecomeActive(UIApplication&) override { }
    void applicationWillTerminate(UIApplication&) override { }
    /// A copy of a list: the list takes from it what it does not have.
    bool applicationOpenDocument(UIApplication&, const Result<std::string>& file) override;
    /// The list takes what others changed in it.
    void applicationDocumentsChanged(UIApplication&) override;
    void setWindow(std::shared_ptr<UIWindow> mainWindow) override { window = std::move(mainWindow); }

    std::shared_ptr<UIWindow> window;

private:
    std::shared_ptr<ViewController> list() const;
};

} // namespace velmorath
