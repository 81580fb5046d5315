#pragma once

#include "DesktopMotion.h"
#include "Screen.h"
#include "ScreenWidget.h"

namespace velmorath {

/// The inside of the program's window.
class QtScreen final : public Screen {
public:
    /// Both outlive this.
    QtScreen(ScreenWidget& widget, const DesktopMotion& motion)
        : m_widget(widget)
        , m_motion(motion)
    {
    }

    CGSize size() const override;
    void requestFrame() override { m_widget.requestFrame(); }
    bool reducesMotion() const override { return m_motion.isReduced(); }
    CGTextMetrics measure(std::string_view utf8, const CGFont&, CGFloat wrapWidth) override;
    std::shared_ptr<CGImage> decodeImage(std::string_view bytes) override;

private:
    ScreenWidget& m_widget;
    const DesktopMotion& m_motion;
};

} // namespace velmorath
