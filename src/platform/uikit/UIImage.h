#pragma once

#include "CGImage.h"
#include <memory>
#include <string>
#include <string_view>

namespace velmorath {

/// A picture: one of the program's own resources, or one that it made.
class UIImage {
public:
    /// The resource "<name>.<type>"; nothing when there is no such file or it is no picture.
    /// `scale` is how many of its pixels make a point.
    static std::shared_ptr<UIImage> named(std::string_view name, std::string_view type, CGFloat scale);

    /// A picture of one black pixel, a point in size; nothing when the machine cannot make it.
    static std::shared_ptr<UIImage> blackPixel();

    UIImage(std::shared_ptr<CGImage> image, CGFloat scale)
        : m_image(std::move(image))
        , m_scale(scale)
    {
    }

    const CGImage& cgImage() const { return *m_image; }
    /// In points.
    CGSize size() const
    {
        return {m_image->pixelSize().width / m_scale, m_image->pixelSize().height / m_scale};
    }

    /// What is to be seen on it, in the user's language, for those who do not; empty at first.
    const std::string& accessibilityLabel() const { return m_accessibilityLabel; }
    void setAccessibilityLabel(std::string label) { m_accessibilityLabel = std::move(label); }

private:
    std::shared_ptr<CGImage> m_image;
    CGFloat m_scale;
    std::string m_accessibilityLabel;
};

} // namespace velmorath
