#pragma once

#include "Locale.h"
#include <memory>
#include <unicode/datefmt.h>

namespace velmorath {

/// Languages as Qt finds them in the environment; ICU writes the dates.
class QtLocale final : public Locale {
public:
    QtLocale();
    /// Dates and languages of somebody who wants this language most.
    explicit QtLocale(std::vector<std::string> preferredLanguages);

    std::vector<std::string> preferredLanguages() override { return m_languages; }
    std::string mediumDate(double wallTime, std::string_view timeZone) override;

private:
    void setTimeZone(std::string_view);

    std::vector<std::string> m_languages;
    std::unique_ptr<icu::DateFormat> m_format;
    std::string m_timeZone;
};

} // namespace velmorath
