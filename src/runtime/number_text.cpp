#include "runtime/number_text.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

#include "runtime/trim.h"

namespace quorkit::runtime {
namespace {

constexpr StringView kSigns = u"+-";
constexpr Double kInfinity = std::numeric_limits<Double>::infinity();

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The value of a letter or digit in any base; for other characters a value too large for every
/// base.
unsigned digitOf(char c) {
    if (isDigit(c)) return static_cast<unsigned>(c - '0');
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'z' ? static_cast<unsigned>(lower - 'a') + 10 : 36;
}

NumberText readRadix(std::string_view text, unsigned bitsPerDigit) {
    constexpr std::size_t prefix = 2;
    const std::size_t mostDigitsOf16Bits = (16 + bitsPerDigit - 1) / bitsPerDigit;
    std::uint64_t value = 0;
    std::size_t length = prefix;
    for (; length < text.size() && digitOf(text[length]) < 1u << bitsPerDigit; ++length) {
        value = value << bitsPerDigit | digitOf(text[length]);
        value = std::min(value, std::uint64_t{1} << 32);  // once too large, it stays too large
    }
    if (length == prefix) return {};
    if (value > 0xFFFF'FFFF) return {kInfinity, length};
    const auto bits = static_cast<std::uint32_t>(value);
    if (length - prefix <= mostDigitsOf16Bits && value <= 0xFFFF)
        return {static_cast<Double>(static_cast<std::int16_t>(bits)), length, bits};
    return {static_cast<Double>(static_cast<std::int32_t>(bits)), length, bits};
}

bool isSign(char16_t unit) {
    return kSigns.find(unit) != StringView::npos;
}

/// Takes the sign off `text`, which has no blanks at its ends, and then the blanks next to the
/// sign. The sign is in front or behind, or parentheses that mean a minus. U+0000 when there is
/// none.
char16_t takeSign(StringView& text) {
    if (text.size() < 2) return u'\0';
    char16_t sign = u'\0';
    if (text.front() == u'(' && text.back() == u')') {
        sign = u'-';
        text = text.substr(1, text.size() - 2);
    } else if (isSign(text.front())) {
        sign = text.front();
        text.remove_prefix(1);
    } else if (isSign(text.back())) {
        sign = text.back();
        text.remove_suffix(1);
    }
    text = without(kWhiteSpace, text);
    return sign;
}

/// Whether the decimal number `text`, including its exponent, is 1 or more.
bool reachesOne(std::string_view text) {
    const std::size_t mantissa = std::min(text.find_first_of("eE"), text.size());
    const std::size_t point = std::min(text.find('.'), mantissa);
    const std::size_t first = std::min(text.find_first_not_of("0."), mantissa);
    long long exponent = 0;
    if (mantissa < text.size()) {
        const char* sign = text.data() + mantissa + 1;
        const auto [end, error] =
            std::from_chars(sign + (*sign == '+'), text.data() + text.size(), exponent);
        if (error != std::errc()) return *sign != '-';
    }
    return exponent > static_cast<long long>(first) - static_cast<long long>(point);
}

/// `text` has no sign, and "e" or "E" in front of its exponent.
Double decimalValue(std::string_view text) {
    Double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) return reachesOne(text) ? kInfinity : 0;
    return value;
}

}  // namespace

NumberText readNumber(std::string_view text) {
    if (text.size() > 2 && text[0] == '&') {
        if ((text[1] | 0x20) == 'h') return readRadix(text, 4);
        if ((text[1] | 0x20) == 'o') return readRadix(text, 3);
    }
    std::size_t end = 0;
    const auto at = [&](std::size_t i) { return i < text.size() ? text[i] : '\0'; };
    const auto skipDigits = [&] {
        const std::size_t from = end;
        while (isDigit(at(end))) ++end;
        return end - from;
    };

    const bool negative = at(0) == '-';
    if (negative || at(0) == '+') ++end;
    const std::size_t start = end;
    std::size_t digits = skipDigits();
    if (at(end) == '.') {
        ++end;
        digits += skipDigits();
    }
    if (digits == 0) return {};

    const std::size_t mantissa = end;
    const char letter = static_cast<char>(at(end) | 0x20);
    if (letter == 'e' || letter == 'd') {
        ++end;
        if (at(end) == '-' || at(end) == '+') ++end;
        if (skipDigits() == 0) end = mantissa;
    }
    std::string_view number = text.substr(start, end - start);
    std::string withE;
    if (end > mantissa && letter == 'd') {
        withE = number;
        withE[mantissa - start] = 'e';
        number = withE;
    }
    const Double value = decimalValue(number);
    return {negative ? -value : value, end};
}

NumberText readWholeNumber(StringView text) {
    text = without(kWhiteSpace, text.substr(0, text.find(u'\0')));
    const char16_t sign = takeSign(text);
    // A second sign is not allowed, and neither is a sign in front of "&".
    if (text.empty() || isSign(text[0]) || (sign != u'\0' && text[0] == u'&')) return {};
    std::string ascii;
    for (const char16_t unit : text) {
        if (unit > 0x7F) return {};
        ascii += static_cast<char>(unit);
    }
    NumberText number = readNumber(ascii);
    if (number.length != ascii.size()) return {};
    if (number.bits) number.value = static_cast<std::int32_t>(*number.bits);
    if (sign == u'-') number.value = -number.value;
    return number;
}

}  // namespace quorkit::runtime
