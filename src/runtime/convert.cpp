#include "runtime/convert.h"

#include <quorkit/errors.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "base/letter_case.h"
#include "runtime/calendar.h"
#include "runtime/date_text.h"
#include "runtime/number_text.h"
#include "runtime/trim.h"

namespace quorkit::runtime {
namespace {

String wide(std::string_view ascii) {
    return String(ascii.begin(), ascii.end());
}

/// 15 significant digits. They are plain when 15 digits before or behind the point show all of
/// them; otherwise the text has an exponent of at least two digits: 0.1, 123456789012345, 1E+15,
/// 1.5E-15.
String textOf(Double value) {
    constexpr int mostDigits = 15;
    if (!std::isfinite(value)) raise(ErrorNumber::Overflow);
    if (value == 0) return u"0";
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, std::abs(value),
                                   std::chars_format::scientific, mostDigits - 1)
                         .ptr;
    // d.ddddddddddddddE: the digits, then the power of ten of the first one.
    std::string digits = std::string(1, buffer[0]) + std::string(buffer + 2, mostDigits - 1);
    digits.erase(digits.find_last_not_of('0') + 1);
    const std::string_view exponentText(buffer + mostDigits + 1, end);
    int exponent = 0;
    std::from_chars(exponentText.data() + (exponentText[1] == '+' ? 2 : 1), end, exponent);

    const int decimals = static_cast<int>(digits.size()) - 1 - exponent;
    std::string text;
    if (exponent >= mostDigits || decimals > mostDigits) {
        text = digits;
        if (text.size() > 1) text.insert(1, ".");
        text += 'E' + std::string(exponentText.substr(1));
    } else if (exponent < 0) {
        text = "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    } else if (decimals > 0) {
        text = digits.insert(static_cast<std::size_t>(exponent) + 1, ".");
    } else {
        text = digits + std::string(static_cast<std::size_t>(-decimals), '0');
    }
    return wide(value < 0 ? "-" + text : text);
}

Double finite(Double value) {
    if (std::isinf(value)) raise(ErrorNumber::Overflow);
    return value;
}

Date inRange(Date date) {
    if (!isDateInRange(date.days)) raise(ErrorNumber::Overflow);
    return date;
}

[[noreturn]] void fail(Null) {
    raise(ErrorNumber::InvalidUseOfNull);
}
template <class T>
[[noreturn]] void fail(const T&) {
    raise(ErrorNumber::TypeMismatch);
}

struct ToText {
    String operator()(Empty) const { return {}; }
    String operator()(Boolean value) const { return value ? u"True" : u"False"; }
    String operator()(Integer value) const { return wide(std::to_string(value)); }
    String operator()(Long value) const { return wide(std::to_string(value)); }
    String operator()(Double value) const { return textOf(value); }
    String operator()(Date value) const { return dateText(inRange(value)); }
    String operator()(const String& value) const { return value; }
    template <class T>
    String operator()(const T& value) const {
        fail(value);
    }
};

struct ToNumber {
    Double operator()(Empty) const { return 0; }
    Double operator()(Boolean value) const { return value ? -1 : 0; }
    Double operator()(Integer value) const { return value; }
    Double operator()(Long value) const { return value; }
    Double operator()(Double value) const { return value; }
    Double operator()(Date value) const { return value.days; }
    Double operator()(const String& value) const {
        const auto number = numberIn(value);
        if (!number) raise(ErrorNumber::TypeMismatch);
        return finite(*number);
    }
    template <class T>
    Double operator()(const T& value) const {
        fail(value);
    }
};

template <class To>
auto converted(const Variant& value) {
    return std::visit(To{}, static_cast<const VariantValue&>(value));
}

template <class Whole>
Whole rounded(Double value) {
    const Double whole = std::nearbyint(value);
    if (!(whole >= std::numeric_limits<Whole>::min() && whole <= std::numeric_limits<Whole>::max()))
        raise(ErrorNumber::Overflow);
    return static_cast<Whole>(whole);
}

}  // namespace

String CStr(const Variant& value) {
    return converted<ToText>(value);
}

Boolean CBool(const Variant& value) {
    if (const auto* text = value.getIf<String>()) {
        if (base::sameText(*text, u"True") || *text == u"#TRUE#") return true;
        if (base::sameText(*text, u"False") || *text == u"#FALSE#") return false;
    }
    return converted<ToNumber>(value) != 0;
}

Integer CInt(const Variant& value) {
    if (const auto* text = value.getIf<String>())
        if (const auto bits = readWholeNumber(*text).bits; bits && *bits <= 0xFFFF)
            return static_cast<Integer>(*bits);
    return rounded<Integer>(converted<ToNumber>(value));
}

Long CLng(const Variant& value) {
    return rounded<Long>(converted<ToNumber>(value));
}

Double CDbl(const Variant& value) {
    return converted<ToNumber>(value);
}

Date CDate(const Variant& value, eLanguage language) {
    if (const auto* text = value.getIf<String>()) {
        const auto date = dateIn(Trim(*text), language);
        if (!date) raise(ErrorNumber::TypeMismatch);
        return *date;
    }
    return inRange({converted<ToNumber>(value)});
}

Long roundToLong(Double value) {
    return rounded<Long>(value);
}

std::optional<Double> numberIn(StringView text) {
    const NumberText number = readWholeNumber(text);
    if (number.length == 0) return {};
    return number.value;
}

Boolean IsNumeric(const Variant& value) {
    if (const auto* text = value.getIf<String>()) {
        const auto number = numberIn(*text);
        return number && std::isfinite(*number);
    }
    return value.is<Empty>() || value.is<Boolean>() || value.is<Integer>() || value.is<Long>() ||
           value.is<Double>();
}

}  // namespace quorkit::runtime
