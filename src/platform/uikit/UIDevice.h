#pragma once

#include "UIScreen.h"
#include <algorithm>

namespace velmorath {

enum class UIUserInterfaceIdiom { phone, pad };

/// The machine that the program runs on. Texts that it does not know are empty.
class UIDevice {
public:
    static UIDevice current() { return {}; }

    std::string model() const { return m_device.model; }
    std::string name() const { return m_device.name; }
    std::string systemName() const { return m_device.systemName; }
    std::string systemVersion() const { return m_device.systemVersion; }

    /// By the size of the program's own window.
    UIUserInterfaceIdiom userInterfaceIdiom() const
    {
        constexpr CGFloat smallestPad = 600;
        const CGSize screen = UIScreen::main().bounds().size;
        const bool isPad = std::min(screen.width, screen.height) >= smallestPad;
        return isPad ? UIUserInterfaceIdiom::pad : UIUserInterfaceIdiom::phone;
    }

private:
    Device m_device = Host::current().effects().device();
};

} // namespace velmorath
