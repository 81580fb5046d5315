#pragma once

#include "CGContext.h"
#include <QPainter>
#include <optional>

namespace velmorath {

class ShadowCache;
class TextCache;

/// Draws with a painter, whose transform and clip are the context's own as long as it is there.
class QtContext final : public CGContext {
public:
    QtContext(QPainter&, TextCache&, ShadowCache&);

private:
    void beginClip(const CGRect&, CGFloat cornerRadius) override;
    void endClip() override;
    void paintColor(const CGRect&, CGFloat cornerRadius, const CGColor&) override;
    void paintGradient(const CGRect&, CGFloat cornerRadius, const CGGradient&) override;
    void paintLine(const CGRect&, CGFloat cornerRadius, CGFloat lineWidth, const CGColor&) override;
    void paintShadow(
        const CGRect&, CGFloat cornerRadius, const CGColor&, CGVector offset, CGFloat blurRadius) override;
    void paintText(std::string_view utf8, const CGRect&, const CGTextStyle&) override;
    void paintImage(const CGImage&, const CGRect&, CGFloat alpha) override;

    void useTransform();
    void paint(const CGRect&, CGFloat cornerRadius, const QBrush&);

    QPainter& m_painter;
    TextCache& m_texts;
    ShadowCache& m_shadows;
    QTransform m_toDevice;
    /// What the painter draws with just now; nothing when that is not known.
    std::optional<CGAffineTransform> m_used;
};

} // namespace velmorath
