#pragma once

#include "Locale.h"

namespace velmorath {

class WebLocale final : public Locale {
public:
    std::vector<std::string> preferredLanguages() override;
    std::string mediumDate(double wallTime) override;
};

} // namespace velmorath
