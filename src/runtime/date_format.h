// The runtime's date formatter. quorkit/date_formats.h and docs/reference.md list what a format may
// hold.
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/values.h>

namespace quorkit::runtime {

/// `date`, rounded to the second, in the format `format`: the name of a format, or tokens (letters
/// in any case, the longest token first), text in double quotes, and characters behind a backslash;
/// all else is copied. An empty format is General Date. Weeks begin on Sunday, and the first week
/// of a year is that of 1 January. A language without names of its own is written as English (see
/// date_language.h). Error 5 for a Date out of range. Takes time in proportion to the format.
String Format(Date date, StringView format, eLanguage language);

}  // namespace quorkit::runtime
