#include <quorkit/errors.h>
#include <quorkit/scalars.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

#include "base/code_page.h"
#include "runtime/convert.h"

namespace quorkit::scalars {
namespace {

constexpr double kTwoTo63 = 9223372036854775808.0;

/// Halves to even.
double rounded(const Variant& value) {
    const double number = std::nearbyint(runtime::CDbl(value));
    if (!std::isfinite(number)) raise(ErrorNumber::Overflow);
    return number;
}

/// The Double nearest to `digits` divided by ten to the power of `scale`.
Double nearest(bool negative, const std::string& digits, unsigned scale) {
    const std::string text = digits + "e-" + std::to_string(scale);
    Double number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return negative ? -number : number;
}

/// The digits of a number of 96 bits.
std::string digitsOf(std::uint32_t high, std::uint64_t low) {
    std::uint32_t words[] = {high, static_cast<std::uint32_t>(low >> 32),
                             static_cast<std::uint32_t>(low)};
    std::string digits;
    while (digits.empty() || words[0] != 0 || words[1] != 0 || words[2] != 0) {
        std::uint64_t rest = 0;
        for (std::uint32_t& word : words) {
            rest = rest << 32 | word;
            word = static_cast<std::uint32_t>(rest / 10);
            rest %= 10;
        }
        digits += static_cast<char>('0' + rest);
    }
    std::ranges::reverse(digits);
    return digits;
}

/// Multiplies by ten and adds a digit. Error 6 when the result needs more than 96 bits.
void append(Decimal& number, char digit) {
    auto carry = static_cast<std::uint64_t>(digit - '0');
    std::uint32_t words[] = {static_cast<std::uint32_t>(number.low),
                             static_cast<std::uint32_t>(number.low >> 32), number.high};
    for (std::uint32_t& word : words) {
        carry += std::uint64_t{10} * word;
        word = static_cast<std::uint32_t>(carry);
        carry >>= 32;
    }
    if (carry != 0) raise(ErrorNumber::Overflow);
    number.low = std::uint64_t{words[1]} << 32 | words[0];
    number.high = words[2];
}

}  // namespace

Variant fromByte(Byte value) {
    return Integer{value};
}

Variant fromSingle(float value) {
    return Double{value};
}

Variant fromInt64(std::int64_t value) {
    if (std::in_range<Long>(value)) return static_cast<Long>(value);
    return static_cast<Double>(value);
}

Variant fromUInt64(std::uint64_t value) {
    if (std::in_range<Long>(value)) return static_cast<Long>(value);
    return static_cast<Double>(value);
}

Variant fromCurrency(std::int64_t tenThousandths) {
    const bool negative = tenThousandths < 0;
    const auto amount = static_cast<std::uint64_t>(tenThousandths);
    return nearest(negative, std::to_string(negative ? 0 - amount : amount), 4);
}

Variant fromDecimal(const Decimal& value) {
    return nearest(value.negative, digitsOf(value.high, value.low), value.scale);
}

Variant fromAnsi(std::string_view bytes) {
    return base::fromAnsi(bytes);
}

Byte toByte(const Variant& value) {
    const Long number = runtime::CLng(value);
    if (!std::in_range<Byte>(number)) raise(ErrorNumber::Overflow);
    return static_cast<Byte>(number);
}

float toSingle(const Variant& value) {
    const auto number = static_cast<float>(runtime::CDbl(value));
    if (!std::isfinite(number)) raise(ErrorNumber::Overflow);
    return number;
}

std::int64_t toInt64(const Variant& value) {
    const double number = rounded(value);
    if (number < -kTwoTo63 || number >= kTwoTo63) raise(ErrorNumber::Overflow);
    return static_cast<std::int64_t>(number);
}

std::uint64_t toUInt64(const Variant& value) {
    const double number = rounded(value);
    if (number < 0 || number >= 2 * kTwoTo63) raise(ErrorNumber::Overflow);
    return static_cast<std::uint64_t>(number);
}

std::int64_t toCurrency(const Variant& value) {
    // The calculation uses text, because a product with 10,000 would already be rounded.
    char text[400];
    char* const end =
        std::to_chars(text, std::end(text), runtime::CDbl(value), std::chars_format::fixed, 4).ptr;
    char* const digits = std::remove(text, end, '.');
    std::int64_t amount = 0;
    const auto [stop, error] = std::from_chars(text, digits, amount);
    if (error != std::errc() || stop != digits) raise(ErrorNumber::Overflow);
    return amount;
}

Decimal toDecimal(const Variant& value) {
    const Double number = runtime::CDbl(value);
    constexpr int mostScale = 28;
    // "d.dddddde+xx": 15 digits, without zeros at the end.
    char text[40];
    char* const end =
        std::to_chars(text, std::end(text), std::fabs(number), std::chars_format::scientific, 14)
            .ptr;
    char* const mark = std::find(text, end, 'e');
    if (mark == end) raise(ErrorNumber::Overflow);  // not finite
    int exponent = 0;
    std::from_chars(mark + (mark[1] == '+' ? 2 : 1), end, exponent);
    int scale = 14 - exponent;
    std::string digits(text, mark);
    std::erase(digits, '.');
    for (; scale > 0 && digits.size() > 1 && digits.back() == '0'; --scale) digits.pop_back();
    for (; scale > mostScale && !digits.empty(); --scale) digits.pop_back();
    for (; scale < 0; ++scale) digits += '0';
    Decimal result;
    for (const char digit : digits) append(result, digit);
    if (result.high == 0 && result.low == 0) return {};
    result.scale = static_cast<std::uint8_t>(scale);
    result.negative = number < 0;
    return result;
}

std::string toAnsi(const Variant& value) {
    return base::toAnsi(runtime::CStr(value));
}

}  // namespace quorkit::scalars
