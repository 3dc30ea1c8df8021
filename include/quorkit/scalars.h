// Scalar types that clients have and Variant has not. Each has one rule for its way in, and one for
// its way out to a client's variable of that type.
//
// On the way out a value that is no number is error 13, Null 94, and a number that does not fit 6;
// halves are rounded to even.
#pragma once

#include <quorkit/variant.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace quorkit {

/// A number of 96 bits and a sign, divided by ten to the power of `scale`, which is 0 to 28.
struct Decimal {
    std::uint32_t high = 0;
    std::uint64_t low = 0;
    std::uint8_t scale = 0;
    bool negative = false;

    bool operator==(const Decimal&) const = default;
};

namespace scalars {

/// An Integer.
Variant fromByte(Byte value);
/// A Double of the same value, which may show more digits: 0.1 becomes 0.100000001490116.
Variant fromSingle(float value);
/// A Long where it fits, else the nearest Double; a Double is exact up to 9007199254740992.
Variant fromInt64(std::int64_t value);
Variant fromUInt64(std::uint64_t value);
/// The nearest Double of an amount in ten-thousandths, or of a decimal number.
Variant fromCurrency(std::int64_t tenThousandths);
Variant fromDecimal(const Decimal& value);
/// A text in the system's ANSI code page, which is 1252 on every system.
Variant fromAnsi(std::string_view bytes);

Byte toByte(const Variant& value);
float toSingle(const Variant& value);
std::int64_t toInt64(const Variant& value);
std::uint64_t toUInt64(const Variant& value);
/// In ten-thousandths.
std::int64_t toCurrency(const Variant& value);
/// For a Double its first 15 digits, with the smallest scale that shows them.
Decimal toDecimal(const Variant& value);
/// "?" for characters that the code page lacks.
std::string toAnsi(const Variant& value);

}  // namespace scalars
}  // namespace quorkit
