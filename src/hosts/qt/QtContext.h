#pragma once

#include "CGContext.h"
#include <QPainter>
#include <vector>

namespace velmorath {

class ShadowCache;
class TextCache;

/// Draws with a painter, which is left as it was found when every save has its restore.
class QtContext final : public CGContext {
public:
    QtContext(QPainter&, TextCache&, ShadowCache&);

    void saveState() override;
    void restoreState() override;
    void concatenate(const CGAffineTransform&) override;
    void clip(const CGRect&, CGFloat cornerRadius) override;
    void multiplyAlpha(CGFloat) override;
    void fill(const CGRect&, CGFloat cornerRadius, const CGColor&) override;
    void fill(const CGRect&, CGFloat cornerRadius, const CGGradient&) override;
    void stroke(const CGRect&, CGFloat cornerRadius, CGFloat lineWidth, const CGColor&) override;
    void drawShadow(
        const CGRect&, CGFloat cornerRadius, const CGColor&, CGVector offset, CGFloat blurRadius) override;
    void drawText(std::string_view utf8, const CGRect&, const CGTextStyle&) override;
    void drawImage(const CGImage&, const CGRect&) override;

private:
    QColor toQColor(const CGColor&) const;
    void fill(const CGRect&, CGFloat cornerRadius, const QBrush&);

    QPainter& m_painter;
    TextCache& m_texts;
    ShadowCache& m_shadows;
    CGFloat m_alpha = 1;
    std::vector<CGFloat> m_savedAlphas;
};

} // namespace velmorath
