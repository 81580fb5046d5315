#pragma once

#include "CommandBuffer.h"
#include "HostClient.h"
#include "Screen.h"

namespace velmorath {

/// The page's canvas.
class WebScreen final : public Screen {
public:
    CGSize size() const override;
    void requestFrame() override;
    bool reducesMotion() const override;
    CGTextMetrics measure(std::string_view utf8, const CGFont&, CGFloat wrapWidth) override;
    std::shared_ptr<CGImage> decodeImage(std::string_view bytes) override;

    /// Lets the client prepare a frame and hands the page what changed, or everything.
    void makeFrame(HostClient&, bool everything);

private:
    CommandBuffer m_commands;
};

} // namespace velmorath
