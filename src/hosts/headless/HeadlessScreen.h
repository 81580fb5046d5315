#pragma once

#include "Screen.h"

namespace velmorath {

/// A screen of 375 x 667 points that nobody sees. Fonts have whole sizes; every character is six
/// tenths as wide as its font's size, and a line a fifth higher than that.
class HeadlessScreen : public Screen {
public:
    CGSize size() const override { return m_size; }
    void requestFrame() override { m_frameRequested = true; }
    bool reducesMotion() const override { return m_reducesMotion; }
    CGTextMetrics measure(std::string_view utf8, const CGFont&, CGFloat wrapWidth) override;
    /// A PNG's or JPEG's first bytes are all that is looked at; every picture is 72 pixels square, but one
    /// that is hardly longer than these bytes is a black pixel.
    std::shared_ptr<CGImage> decodeImage(std::string_view bytes) override;

    void setSize(CGSize size) { m_size = size; }
    void setReducesMotion(bool reduces) { m_reducesMotion = reduces; }
    void setDecodesImages(bool decodes) { m_decodesImages = decodes; }
    bool isFrameRequested() const { return m_frameRequested; }
    void takeFrameRequest() { m_frameRequested = false; }

private:
    CGSize m_size{375, 667};
    bool m_reducesMotion = false;
    bool m_decodesImages = true;
    bool m_frameRequested = false;
};

} // namespace velmorath
