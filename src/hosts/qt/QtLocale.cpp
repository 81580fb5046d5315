#include "QtLocale.h"
#include <QLocale>
#include <unicode/timezone.h>

namespace velmorath {

namespace {

std::vector<std::string> systemLanguages()
{
    std::vector<std::string> languages;
    for (const QString& language : QLocale::system().uiLanguages()) {
        const bool isPlainC = language == QLatin1String("C") || language == QLatin1String("POSIX");
        languages.push_back(isPlainC ? "en" : language.toStdString());
    }
    return languages;
}

} // namespace

QtLocale::QtLocale()
    : QtLocale(systemLanguages())
{
}

QtLocale::QtLocale(std::vector<std::string> preferredLanguages)
    : m_languages(std::move(preferredLanguages))
{
}

std::string QtLocale::mediumDate(double wallTime, std::string_view timeZone)
{
    if (!m_format || timeZone != m_timeZone)
        setTimeZone(timeZone);
    if (!m_format)
        return {};
    icu::UnicodeString text;
    m_format->format(wallTime * 1000, text);
    std::string utf8;
    return text.toUTF8String(utf8);
}

void QtLocale::setTimeZone(std::string_view timeZone)
{
    if (!m_format) {
        UErrorCode error = U_ZERO_ERROR;
        const icu::Locale language =
            icu::Locale::forLanguageTag(m_languages.empty() ? "en" : m_languages.front(), error);
        m_format.reset(icu::DateFormat::createDateInstance(icu::DateFormat::kMedium, language));
        if (!m_format)
            return;
    }
    m_timeZone = timeZone;
    std::unique_ptr<icu::TimeZone> zone(
        icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(m_timeZone)));
    if (*zone == icu::TimeZone::getUnknown())
        zone.reset(icu::TimeZone::createDefault());
    m_format->adoptTimeZone(zone.release());
}

} // namespace velmorath
