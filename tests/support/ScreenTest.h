#pragma once

#include "Story.h"

namespace velmorath {

/// An empty screen over the program's list, 375 x 667 points, to put views on and to present screens from.
class ScreenTest : public Story {
protected:
    ScreenTest()
    {
        host.screen().setSize({375, 667});
        start({});
        list().present(m_screen, false);
        host.advance(0.1);
    }

    UIViewController& root() const { return *m_screen; }
    UIView& screen() const { return *root().view(); }
    /// Puts a new view on the screen.
    template <typename View> std::shared_ptr<View> add(const CGRect& frame) const
    {
        auto view = std::make_shared<View>(frame);
        screen().addSubview(view);
        return view;
    }

private:
    const std::shared_ptr<UIViewController> m_screen = std::make_shared<UIViewController>();
};

} // namespace velmorath
