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
    /// With the opacity of all that it is in.
    CGColor color;
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
    CGFloat imageAlpha = 1;
};

/// Draws into a list that a test can ask about.
class DrawingRecorder : public CGContext {
public:
    const std::vector<DrawingCommand>& commands() const& { return m_commands; }
    std::vector<DrawingCommand> commands() && { return std::move(m_commands); }
    /// The texts on the screen in the order of drawing: those that show at all.
    std::vector<std::string> texts() const;
    /// Null when no such text shows.
    const DrawingCommand* text(std::string_view) const;
    /// The last opaque colour filled at a point: what is seen there, text and sheen aside.
    CGColor colorAt(CGPoint) const;

private:
    void beginClip(const CGRect&, CGFloat cornerRadius) override;
    void endClip() override { m_clips.pop_back(); }
    void paintColor(const CGRect&, CGFloat cornerRadius, const CGColor&) override;
    void paintGradient(const CGRect&, CGFloat cornerRadius, const CGGradient&) override;
    void paintLine(const CGRect&, CGFloat cornerRadius, CGFloat lineWidth, const CGColor&) override;
    void paintShadow(
        const CGRect&, CGFloat cornerRadius, const CGColor&, CGVector offset, CGFloat blurRadius) override;
    void paintText(std::string_view utf8, const CGRect&, const CGTextStyle&) override;
    void paintImage(const CGImage&, const CGRect&, CGFloat alpha) override;

    DrawingCommand& add(DrawingCommand::Kind, const CGRect&);

    std::vector<CGRect> m_clips{{{-1e9, -1e9}, {2e9, 2e9}}};
    std::vector<DrawingCommand> m_commands;
};

} // namespace velmorath
