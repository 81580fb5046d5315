#pragma once

#include "Screen.h"
#include "ScreenWidget.h"

namespace velmorath {

/// The inside of the program's window.
class QtScreen final : public Screen {
public:
    explicit QtScreen(ScreenWidget& widget)
        : m_widget(widget)
    {
    }

    CGSize size() const override;
    void requestFrame() override { m_widget.requestFrame(); }
    bool reducesMotion() const override { return false; }
    CGTextMetrics measure(std::string_view utf8, const CGFont&, CGFloat wrapWidth) override;
    std::shared_ptr<CGImage> decodeImage(std::string_view bytes) override;

private:
    ScreenWidget& m_widget;
};

} // namespace velmorath
