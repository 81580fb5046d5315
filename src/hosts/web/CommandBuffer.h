#pragma once

#include "CGAffineTransform.h"
#include "CGColor.h"
#include "CGContext.h"
#include "CGText.h"
#include <string_view>
#include <vector>

namespace velmorath {

/// One frame's drawing, as numbers that the page reads in one go: a command, then what belongs to it, as
/// page/painter.js takes it off again. Colours are 0xRRGGBBAA. Texts are their number of bytes and then the
/// bytes, eight to a word.
class CommandBuffer {
public:
    enum class Command {
        save,
        restore,
        /// a b c d tx ty, from the coordinates that follow to device pixels
        transform,
        /// x y width height radius
        clip,
        /// x y width height radius color
        fill,
        /// x y width height radius count (location color)…
        fillGradient,
        /// x y width height radius lineWidth color
        stroke,
        /// x y width height radius color; in device pixels: dx dy blurRadius
        shadow,
        /// x y width height size bold alignment wraps color family text
        text,
        /// image x y width height alpha
        image,
    };

    const std::vector<double>& words() const { return m_words; }
    void clear() { m_words.clear(); }

    void put(Command command) { m_words.push_back(static_cast<double>(command)); }
    void put(double number) { m_words.push_back(number); }
    void put(const CGRect&);
    void put(const CGAffineTransform&);
    void put(const CGColor& color) { m_words.push_back(packed(color)); }
    void put(std::string_view text);

    /// Components are clamped to what can be shown.
    static double packed(const CGColor&);

private:
    std::vector<double> m_words;
};

} // namespace velmorath
