#pragma once

#include <string>
#include <vector>

namespace velmorath {

/// The user's language and customs. Main thread only.
class Locale {
public:
    virtual ~Locale() = default;

    /// Language tags such as "it-IT", the most wanted first. Empty when the machine does not know.
    virtual std::vector<std::string> preferredLanguages() = 0;

    /// The day on which a moment (seconds since 1970 UTC) falls in UTC, as the user's customs write it in
    /// the length that suits a list: "Nov 22, 2026".
    virtual std::string mediumDate(double wallTime) = 0;
};

} // namespace velmorath
