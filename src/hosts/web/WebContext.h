#pragma once

#include "CGContext.h"
#include "CommandBuffer.h"
#include <vector>

namespace velmorath {

/// Writes what is drawn into a buffer for the page. It keeps the transform and the alpha itself, and puts
/// upright edges and texts on whole device pixels: rows that touch leave no seam, and words are sharp.
class WebContext final : public CGContext {
public:
    /// Draws only inside this area, in points.
    WebContext(CommandBuffer&, CGFloat scale, const CGRect& area);
    ~WebContext() override;
    WebContext(const WebContext&) = delete;
    WebContext& operator=(const WebContext&) = delete;

    void saveState() override { m_saved.push_back(m_state); }
    void restoreState() override;
    void concatenate(const CGAffineTransform&) override;
    void clip(const CGRect&, CGFloat cornerRadius) override;
    void multiplyAlpha(CGFloat alpha) override { m_state.alpha *= alpha; }

    void fill(const CGRect&, CGFloat cornerRadius, const CGColor&) override;
    void fill(const CGRect&, CGFloat cornerRadius, const CGGradient&) override;
    void stroke(const CGRect&, CGFloat cornerRadius, CGFloat lineWidth, const CGColor&) override;
    void drawShadow(
        const CGRect&, CGFloat cornerRadius, const CGColor&, CGVector offset, CGFloat blurRadius) override;
    void drawText(std::string_view utf8, const CGRect&, const CGTextStyle&) override;
    void drawImage(const CGImage&, const CGRect&) override;

private:
    using Command = CommandBuffer::Command;

    struct State {
        /// From points to device pixels.
        CGAffineTransform transform;
        CGFloat alpha = 1;
        /// How many clips the page has saved its own state for.
        int clips = 0;
    };

    bool isUpright() const { return m_state.transform.b == 0 && m_state.transform.c == 0; }
    CGColor faded(const CGColor& color) const { return color.withAlpha(color.alpha * m_state.alpha); }
    /// Puts the command and the rectangle: with sharp corners as whole device pixels where it can be.
    void putShape(Command, const CGRect&, CGFloat cornerRadius);
    void use(const CGAffineTransform&);

    CommandBuffer& m_commands;
    State m_state;
    std::vector<State> m_saved;
    /// What the page draws with just now.
    CGAffineTransform m_used;
};

} // namespace velmorath
