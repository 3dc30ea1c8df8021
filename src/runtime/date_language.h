// A language's names of months and days, and its forms of dates and times.
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
    /// Patterns in the notation of date_format.h.
    StringView shortDate;
    StringView longDate;
    StringView time;
    char16_t dateSeparator;

    /// Whether the month stands before the day in a numeric date.
    bool monthFirst() const { return shortDate.front() == u'm'; }
};

/// German, French, Italian and English.
std::span<const DateLanguage> dateLanguages();

/// The entry of a language; English if there is none.
const DateLanguage& dateLanguage(eLanguage language);

}  // namespace quorkit::runtime
