// Dates as texts and back.
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/values.h>

#include <optional>

namespace quorkit::runtime {

/// "yyyy-mm-dd", followed by " hh:mm:ss" unless it is midnight; the same in every language. Error 5
/// for a Date out of range.
String dateText(Date date);

/// The date that the whole text is, without blanks around it; nothing when it is no date.
/// - A day: "2024-01-31" (also with "/" or "."), "31.1.2024"; "1/31/2024" and "1-31-2024" for
///   English, "31/1/2024" and "31-1-2024" for the other languages. If the order of the language
///   gives no day, the other order is tried.
/// - A day with the name of its month, long or short, in any language of date_language.h, also as
///   "Jaenner" (or with its umlaut), "Maerz", "Mrz" or "Sept": "31. Januar 2024", "31-Jan-24",
///   "janv. 31, 2024".
/// - The name of a weekday may stand in front of any day; it is not checked.
/// - The year must be there. One of one or two digits is 2000 to 2029 or 1930 to 1999.
/// - A time: "13:05", "13:05:59", "1:05 PM", "1 PM". It may stand before or behind the day, with
///   blanks or a comma between them, or behind it after a "T". Without a day it is a time of day 0.
/// A number alone is no date.
std::optional<Date> dateIn(StringView text, eLanguage language = eLanguage_English);

}  // namespace quorkit::runtime
