// The runtime's conversions between the scalar types. Numbers in texts use the full stop.
//
// A value that does not convert is error 13 (type mismatch): a text that is no number, an array, an
// object, a missing argument. Null is error 94. A number that does not fit is error 6 (overflow).
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/errors.h>
#include <quorkit/variant.h>

#include <optional>
#include <utility>

namespace quorkit::runtime {

/// A value, or why there is none: for those who would only catch the error. To throw one takes
/// longer than a call does.
template <class T>
class Converted {
   public:
    // It is made from either.
    // NOLINTBEGIN(google-explicit-constructor)
    Converted(T value) : value_(std::move(value)) {}
    Converted(ErrorNumber failure) : failure_(failure) {}
    // NOLINTEND(google-explicit-constructor)

    std::optional<ErrorNumber> failure() const { return failure_; }
    T& value() { return value_; }
    T orRaise() && {
        if (failure_) raise(*failure_);
        return std::move(value_);
    }

   private:
    T value_{};
    std::optional<ErrorNumber> failure_;
};

/// What the functions below give, by type: String, Boolean, Integer, Long, Double.
template <class T>
Converted<T> to(const Variant& value);
Converted<Date> toDate(const Variant& value, eLanguage language = eLanguage_English);

/// Doubles have 15 significant digits, and an exponent ("1E+20") only where plain digits cannot
/// show them. Dates are "yyyy-mm-dd", followed by " hh:mm:ss" unless it is midnight.
String CStr(const Variant& value);
/// Numbers other than 0 are True, and so are the texts "True", in any case, and "#TRUE#".
Boolean CBool(const Variant& value);
/// Rounds to the nearest, halves to even. In a text "&H" and "&O" are 16 bits: "&HFFFF" is -1.
Integer CInt(const Variant& value);
Long CLng(const Variant& value);
Double CDbl(const Variant& value);
/// A text is read as by `dateIn` of date_text.h for the language; blanks around it are allowed.
Date CDate(const Variant& value, eLanguage language = eLanguage_English);

/// A Double as a 32-bit number, rounded to the nearest, halves to even. Error 6 when out of range.
Long roundToLong(Double value);

/// The number that the whole text is. The text has one of two forms. One is decimal: digits with a
/// full stop and an exponent behind e or d, a sign in front or behind, or parentheses for a minus.
/// The other is "&H" or "&O" with the digits of a signed 32-bit number, and no sign. White space is
/// allowed around the number and beside the sign; thousands marks are not. The text ends at its
/// first U+0000. Nothing when it is no number, infinity when it is too large.
std::optional<Double> numberIn(StringView text);

/// The runtime's numeric test: True for everything that CDbl converts, except dates. Never an
/// error.
Boolean IsNumeric(const Variant& value);

}  // namespace quorkit::runtime
