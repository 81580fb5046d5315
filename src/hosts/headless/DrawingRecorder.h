#pragma once

#include "CGContext.h"
#include <string>
#include <utility>
#include <vector>

namespace velmorath {

/// One thing that was drawn: where on the screen, and how.
struct DrawingCommand {
    enum class Kind { fill, gradient, stroke, shadow, text, image };

    Kind kind = Kind::fill;
    /// In screen points, before clipping.
    CGRect rect;
    /// What of it is inside the clip.
    CGRect visible;
    CGColor color;
    CGFloat alpha = 1;
    CGFloat cornerRadius = 0;
    /// Of a stroke.
    CGFloat lineWidth = 0;
    /// Of a shadow.
    CGFloat blurRadius = 0;
    CGGradient gradient;
    std::string text;
    CGTextStyle textStyle;
    /// Of a picture: its pixels, and the length of the file that it comes from.
    CGSize imagePixels;
    std::size_t imageBytes = 0;
};

/// Draws into a list that a test can ask about.
class DrawingRecorder : public CGContext {
public:
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

    const std::vector<DrawingCommand>& commands() const& { return m_commands; }
    std::vector<DrawingCommand> commands() && { return std::move(m_commands); }
    /// The texts on the screen in the order of drawing: those that show at all.
    std::vector<std::string> texts() const;
    /// Null when no such text shows.
    const DrawingCommand* text(std::string_view) const;
    /// The last opaque colour filled at a point: what is seen there, text and sheen aside.
    CGColor colorAt(CGPoint) const;

private:
    struct State {
        CGAffineTransform transform;
        CGRect clip{{-1e9, -1e9}, {2e9, 2e9}};
        CGFloat alpha = 1;
    };

    DrawingCommand& add(DrawingCommand::Kind, const CGRect&);

    State m_state;
    std::vector<State> m_saved;
    std::vector<DrawingCommand> m_commands;
};

} // namespace velmorath
