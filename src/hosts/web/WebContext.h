#pragma once

#include "CGContext.h"
#include "CommandBuffer.h"
#include <optional>

namespace velmorath {

/// Writes what is drawn into a buffer for the page. It puts
/// upright edges and texts on whole device pixels: rows that touch leave no seam, and words are sharp.
class WebContext final : public CGContext {
public:
    /// Draws only inside this area, in points.
    WebContext(CommandBuffer&, CGFloat scale, const CGRect& area);
    ~WebContext() override;
    WebContext(const WebContext&) = delete;
    WebContext& operator=(const WebContext&) = delete;

private:
    using Command = CommandBuffer::Command;

    void beginClip(const CGRect&, CGFloat cornerRadius) override;
    void endClip() override;
    void paintColor(const CGRect&, CGFloat cornerRadius, const CGColor&) override;
    void paintGradient(const CGRect&, CGFloat cornerRadius, const CGGradient&) override;
    void paintLine(const CGRect&, CGFloat cornerRadius, CGFloat lineWidth, const CGColor&) override;
    void paintShadow(
        const CGRect&, CGFloat cornerRadius, const CGColor&, CGVector offset, CGFloat blurRadius) override;
    void paintText(std::string_view utf8, const CGRect&, const CGTextStyle&) override;
    void paintImage(const CGImage&, const CGRect&, CGFloat alpha) override;

    /// Puts the command and the rectangle: with sharp corners as whole device pixels where it can be.
    void putShape(Command, const CGRect&, CGFloat cornerRadius);
    void use(const CGAffineTransform&);

    CommandBuffer& m_commands;
    /// What the page draws with just now; nothing when that is not known.
    std::optional<CGAffineTransform> m_used;
};

} // namespace velmorath
