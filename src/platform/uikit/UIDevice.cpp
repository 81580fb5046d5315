#include "UIDevice.h"
#include "Host.h"
#include "UIScreen.h"
#include <algorithm>

namespace velmorath {

namespace {

Device device()
{
    return Host::current().effects().device();
}

} // namespace

const UIDevice& UIDevice::current()
{
    static const UIDevice s_current;
    return s_current;
}

std::string UIDevice::model() const
{
    return device().model;
}

std::string UIDevice::name() const
{
    return device().name;
}

std::string UIDevice::systemName() const
{
    return device().systemName;
}

std::string UIDevice::systemVersion() const
{
    return device().systemVersion;
}

UIUserInterfaceIdiom UIDevice::userInterfaceIdiom() const
{
    constexpr CGFloat smallestPad = 600;
    const CGSize screen = UIScreen::main().bounds().size;
    return std::min(screen.width, screen.height) >= smallestPad ? UIUserInterfaceIdiom::pad
                                                                : UIUserInterfaceIdiom::phone;
}

} // namespace velmorath
