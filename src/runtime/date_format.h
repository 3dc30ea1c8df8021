// The runtime's date formatter. What a format may hold is told by quorkit/date_formats.h, and in
// docs/reference.md.
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/values.h>

namespace quorkit::runtime {

/// `date`, rounded to the second, as `format` says: the name of a format, tokens (letters in any
/// case, the longest token first), text in double quotes, characters behind a backslash; everything
/// else is copied. An empty format is General Date. Weeks begin on Sunday, and the first one of a
/// year is that of 1 January. English for a language without names of its own (see
/// date_language.h). Error 5 for a Date out of range. Takes as long as the format.
String Format(Date date, StringView format, eLanguage language);

}  // namespace quorkit::runtime
