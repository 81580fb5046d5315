#pragma once

#include "Finger.h"
#include "HeadlessHost.h"
#include "UIApplication.h"
#include "UIViewController.h"
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace velmorath {

/// A program of one empty screen, 375 x 667 points, to put views on and to present screens from.
class ScreenTest : public testing::Test {
protected:
    ScreenTest();
    ~ScreenTest() override;

    /// Starts the program; `finishLaunching` runs before there is a window.
    void start(std::function<void()> finishLaunching = {});

    UIViewController& root() const { return *UIApplication::shared().keyWindow()->rootViewController(); }
    UIView& screen() const { return *root().view(); }
    /// Puts a new view on the screen.
    template <typename View> std::shared_ptr<View> add(const CGRect& frame) const
    {
        auto view = std::make_shared<View>(frame);
        screen().addSubview(view);
        return view;
    }

    void tap(CGPoint);
    /// The lines written since this was last asked.
    std::vector<std::string> takeLines();
    /// How many frames the program asks for in the next second.
    int framesInASecond();

    HeadlessHost host{VELMORATH_RESOURCES};
};

} // namespace velmorath
