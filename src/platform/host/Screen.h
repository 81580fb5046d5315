#pragma once

#include "CGGeometry.h"
#include "CGImage.h"
#include "CGText.h"
#include <memory>
#include <string_view>

namespace velmorath {

/// The one area that the program draws on. Main thread only. Required.
class Screen {
public:
    virtual ~Screen() = default;

    /// In points. Both sides are finite and at least 1.
    virtual CGSize size() const = 0;

    /// HostClient::prepareFrame() is called once, in time for the display's next frame. Asking again
    /// before that changes nothing. While the program cannot be seen the frame may wait.
    virtual void requestFrame() = 0;

    /// The user wants nothing to move: what would move is shown at its end at once. May change at any time.
    virtual bool reducesMotion() const = 0;

    /// How large a text is in one line or, with a width greater than zero, wrapped at that width. A
    /// text without characters is as high as a line and has no width.
    virtual CGTextMetrics measure(std::string_view utf8, const CGFont&, CGFloat wrapWidth = 0) = 0;

    /// PNG or JPEG; nothing when the bytes are no picture that the host can read.
    virtual std::shared_ptr<CGImage> decodeImage(std::string_view bytes) = 0;
};

} // namespace velmorath
