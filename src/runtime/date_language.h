// How a language names months and days, and how it writes dates and times.
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/values.h>

#include <span>

namespace quorkit::runtime {

struct DateLanguage {
    eLanguage language;
    StringView months[12];
    StringView shortMonths[12];
    StringView days[7];  ///< from Sunday
    StringView shortDays[7];
    /// Patterns of date_format.h.
    StringView shortDate;
    StringView longDate;
    StringView time;
    char16_t dateSeparator;

    /// Whether the month stands before the day in a date of numbers.
    bool monthFirst() const { return shortDate.front() == u'm'; }
};

/// German, French, Italian and English.
std::span<const DateLanguage> dateLanguages();

/// English for a language that is not there.
const DateLanguage& dateLanguage(eLanguage language);

}  // namespace quorkit::runtime
