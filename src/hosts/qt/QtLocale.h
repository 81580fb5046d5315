#pragma once

#include "Locale.h"
#include <memory>
#include <unicode/datefmt.h>

namespace velmorath {

/// What the environment says of language and customs: Qt finds the languages there, ICU writes the dates.
class QtLocale final : public Locale {
public:
    std::vector<std::string> preferredLanguages() override;
    std::string mediumDate(double wallTime) override;

private:
    std::unique_ptr<icu::DateFormat> m_format;
};

} // namespace velmorath
