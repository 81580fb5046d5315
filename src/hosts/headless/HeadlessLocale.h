#pragma once

#include "Locale.h"

namespace velmorath {

/// A user whose languages the test chooses. Dates are written in English.
class HeadlessLocale : public Locale {
public:
    std::vector<std::string> preferredLanguages() override { return m_languages; }
    std::string mediumDate(double wallTime) override;

    void setPreferredLanguages(std::vector<std::string> languages) { m_languages = std::move(languages); }

private:
    std::vector<std::string> m_languages{"en-US"};
};

} // namespace velmorath
