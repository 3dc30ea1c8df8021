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
/// Numbers other than 0 and the text "True", in any case, are True.
Boolean CBool(const Variant& value);
/// Rounds to the nearest, halves to even.
Integer CInt(const Variant& value);
Long CLng(const Variant& value);
Double CDbl(const Variant& value);
/// Texts as `dateIn` of date_text.h reads them for the language, blanks around them allowed.
Date CDate(const Variant& value, eLanguage language = eLanguage_English);

/// A double as a 32-bit number, rounded to the nearest, halves to even. Error 6 when out of range.
Long roundToLong(Double value);

/// The number that the whole text is, blanks around it allowed: sign, digits, full stop, exponent,
/// or "&H" and "&O" with digits. Nothing when it is no number; infinite
/// when it is too large.
std::optional<Double> numberIn(StringView text);

}  // namespace quorkit::runtime
