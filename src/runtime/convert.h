// The runtime's conversions between the scalar types. Numbers in texts use the full stop.
//
// All raise 13 (type mismatch) for a value that does not convert: a text that is no number, an
// array, an object, a missing argument; 94 for Null; 6 (overflow) for a number that does not fit.
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/variant.h>

#include <optional>

namespace quorkit::runtime {

/// Doubles with 15 significant digits, with an exponent ("1E+20") only where plain digits cannot
/// show them; dates as "yyyy-mm-dd", and " hh:mm:ss" behind it unless it is midnight.
String CStr(const Variant& value);
/// Numbers other than 0 are True, and so are the texts "True", in any case, and "#TRUE#".
Boolean CBool(const Variant& value);
/// Rounds to the nearest, halves to even. In a text "&H" and "&O" spell 16 bits: "&HFFFF" is -1.
Integer CInt(const Variant& value);
Long CLng(const Variant& value);
Double CDbl(const Variant& value);
/// Texts as `dateIn` of date_text.h reads them for the language, blanks around them allowed.
Date CDate(const Variant& value, eLanguage language = eLanguage_English);

/// A double as a 32-bit number, rounded to the nearest, halves to even. Error 6 when out of range.
Long roundToLong(Double value);

/// The number that the whole text is: digits with a full stop and an exponent behind e or d; a sign
/// in front or behind, or parentheses, which mean a minus; or "&H" and "&O" with the digits of a
/// signed 32-bit number, without a sign. White space may stand around it and beside the sign; there
/// are no thousands marks. The text ends at its first U+0000. Nothing when it is no number;
/// infinite when it is too large.
std::optional<Double> numberIn(StringView text);

/// The runtime's numeric test: True for what CDbl converts, but for dates, which are none. Never an
/// error.
Boolean IsNumeric(const Variant& value);

}  // namespace quorkit::runtime
