#pragma once

#include "CGImage.h"
#include "Page.h"

namespace velmorath {

/// A picture that the page keeps under a number.
class WebImage final : public CGImage {
public:
    WebImage(int number, CGSize pixelSize)
        : m_number(number)
        , m_pixelSize(pixelSize)
    {
    }
    ~WebImage() override { pageReleaseImage(m_number); }
    WebImage(const WebImage&) = delete;
    WebImage& operator=(const WebImage&) = delete;

    CGSize pixelSize() const override { return m_pixelSize; }
    int number() const { return m_number; }

private:
    int m_number;
    CGSize m_pixelSize;
};

} // namespace velmorath
