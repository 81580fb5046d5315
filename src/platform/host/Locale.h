#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmorath {

/// The user's language and customs. Main thread only.
class Locale {
public:
    virtual ~Locale() = default;

    /// Language tags such as "it-IT", the most wanted first. Empty when the machine does not know.
    virtual std::vector<std::string> preferredLanguages() = 0;

    /// The day on which a moment (seconds since 1970 UTC) falls in a time zone, in the user's language
    /// and the length that suits a list: "Nov 22, 2026". The zone is an abbreviation like "UTC"; one
    /// that the machine does not know means the machine's own zone.
    virtual std::string mediumDate(double wallTime, std::string_view timeZone) = 0;
};

} // namespace velmorath
