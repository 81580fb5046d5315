#pragma once

#include <string>

namespace velmorath {

enum class UIUserInterfaceIdiom { phone, pad };

/// The machine that the program runs on. Texts that it does not know are empty.
class UIDevice {
public:
    static const UIDevice& current();

    std::string model() const;
    std::string name() const;
    std::string systemName() const;
    std::string systemVersion() const;
    /// By the size of the program's own window.
    UIUserInterfaceIdiom userInterfaceIdiom() const;
};

} // namespace velmorath
