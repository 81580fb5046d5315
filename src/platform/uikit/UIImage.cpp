#include "UIImage.h"
#include "Bundle.h"
#include "Host.h"

namespace velmorath {

std::shared_ptr<UIImage> UIImage::named(std::string_view name, std::string_view type, CGFloat scale)
{
    const auto path = Bundle::main().path(name, type);
    if (!path)
        return nullptr;
    const auto bytes = Host::current().files().read(*path);
    if (!bytes)
        return nullptr;
    std::shared_ptr<CGImage> image = Host::current().screen().decodeImage(*bytes);
    return image ? std::make_shared<UIImage>(std::move(image), scale) : nullptr;
}

std::shared_ptr<UIImage> UIImage::blackPixel()
{
    // As a file, which every machine that has pictures at all can read.
    static constexpr unsigned char png[] = {0x89, 0x50, 0x4e, 0x47, 0x0d, 0x0a, 0x1a, 0x0a, 0x00, 0x00, 0x00,
        0x0d, 0x49, 0x48, 0x44, 0x52, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x01, 0x08, 0x00, 0x00, 0x00,
        0x00, 0x3a, 0x7e, 0x9b, 0x55, 0x00, 0x00, 0x00, 0x0a, 0x49, 0x44, 0x41, 0x54, 0x78, 0xda, 0x63, 0x60,
        0x00, 0x00, 0x00, 0x02, 0x00, 0x01, 0xe5, 0x27, 0xde, 0xfc, 0x00, 0x00, 0x00, 0x00, 0x49, 0x45, 0x4e,
        0x44, 0xae, 0x42, 0x60, 0x82};
    std::shared_ptr<CGImage> image =
        Host::current().screen().decodeImage({reinterpret_cast<const char*>(png), sizeof png});
    return image ? std::make_shared<UIImage>(std::move(image), 1) : nullptr;
}

} // namespace velmorath
