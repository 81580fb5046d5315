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

std::shared_ptr<UIImage> UIImage::filled(CGSize size, const CGColor& color)
{
    std::shared_ptr<CGImage> image = Host::current().screen().makeBitmap(size, color);
    return image ? std::make_shared<UIImage>(std::move(image), 1) : nullptr;
}

} // namespace velmorath
