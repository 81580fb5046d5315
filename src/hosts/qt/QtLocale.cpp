#include "QtLocale.h"
#include <QLocale>
#include <cstdlib>
#include <unicode/timezone.h>
#include <unicode/ures.h>

namespace velmorath {

namespace {

/// Dates are a custom, not a language: English texts may have German dates between them.
std::string localeOfDates()
{
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value && *value)
            return value;
    }
    return {};
}

/// What ICU does not know, C's plain customs among it, is English: its own answer has months like "M11".
icu::Locale knownLocale(const std::string& posixName)
{
    const icu::Locale locale = icu::Locale::createCanonical(posixName.c_str());
    UErrorCode error = U_ZERO_ERROR;
    ures_close(ures_open(nullptr, locale.getName(), &error));
    const bool isKnown = *locale.getLanguage() && U_SUCCESS(error) && error != U_USING_DEFAULT_WARNING;
    return isKnown ? locale : icu::Locale::getUS();
}

} // namespace

std::vector<std::string> QtLocale::preferredLanguages()
{
    std::vector<std::string> languages;
    for (const QString& language : QLocale::system().uiLanguages()) {
        const bool isPlainC = language == QLatin1String("C") || language == QLatin1String("POSIX");
        languages.push_back(isPlainC ? "en" : language.toStdString());
    }
    return languages;
}

std::string QtLocale::mediumDate(double wallTime)
{
    if (!m_format) {
        m_format.reset(
            icu::DateFormat::createDateInstance(icu::DateFormat::kMedium, knownLocale(localeOfDates())));
        if (!m_format)
            return {};
        m_format->setTimeZone(*icu::TimeZone::getGMT());
    }
    icu::UnicodeString text;
    m_format->format(wallTime * 1000, text);
    std::string utf8;
    return text.toUTF8String(utf8);
}

} // namespace velmorath
