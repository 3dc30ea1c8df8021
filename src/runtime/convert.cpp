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
Converted<String> textOf(Double value) {
    constexpr int mostDigits = 15;
    if (!std::isfinite(value)) return ErrorNumber::Overflow;
    if (value == 0) return String(u"0");
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

ErrorNumber misfit(Null) {
    return ErrorNumber::InvalidUseOfNull;
}
template <class T>
ErrorNumber misfit(const T&) {
    return ErrorNumber::TypeMismatch;
}

struct ToText {
    using Result = Converted<String>;
    Result operator()(Empty) const { return String(); }
    Result operator()(Boolean value) const { return String(value ? u"True" : u"False"); }
    Result operator()(Integer value) const { return wide(std::to_string(value)); }
    Result operator()(Long value) const { return wide(std::to_string(value)); }
    Result operator()(Double value) const { return textOf(value); }
    Result operator()(Date value) const {
        if (!isDateInRange(value.days)) return ErrorNumber::Overflow;
        return dateText(value);
    }
    Result operator()(const String& value) const { return value; }
    template <class T>
    Result operator()(const T& value) const {
        return misfit(value);
    }
};

struct ToNumber {
    using Result = Converted<Double>;
    Result operator()(Empty) const { return 0.0; }
    Result operator()(Boolean value) const { return value ? -1.0 : 0.0; }
    Result operator()(Integer value) const { return static_cast<Double>(value); }
    Result operator()(Long value) const { return static_cast<Double>(value); }
    Result operator()(Double value) const { return value; }
    Result operator()(Date value) const { return value.days; }
    Result operator()(const String& value) const {
        const auto number = numberIn(value);
        if (!number) return ErrorNumber::TypeMismatch;
        if (std::isinf(*number)) return ErrorNumber::Overflow;
        return *number;
    }
    template <class T>
    Result operator()(const T& value) const {
        return misfit(value);
    }
};

template <class To>
typename To::Result converted(const Variant& value) {
    return std::visit(To{}, static_cast<const VariantValue&>(value));
}

template <class Whole>
Converted<Whole> rounded(Converted<Double> number) {
    if (number.failure()) return *number.failure();
    const Double whole = std::nearbyint(number.value());
    if (!(whole >= std::numeric_limits<Whole>::min() && whole <= std::numeric_limits<Whole>::max()))
        return ErrorNumber::Overflow;
    return static_cast<Whole>(whole);
}

}  // namespace

template <>
Converted<String> to(const Variant& value) {
    return converted<ToText>(value);
}

template <>
Converted<Boolean> to(const Variant& value) {
    if (const auto* text = value.getIf<String>()) {
        if (base::sameText(*text, u"True") || *text == u"#TRUE#") return true;
        if (base::sameText(*text, u"False") || *text == u"#FALSE#") return false;
    }
    auto number = converted<ToNumber>(value);
    if (number.failure()) return *number.failure();
    return number.value() != 0;
}

template <>
Converted<Integer> to(const Variant& value) {
    if (const auto* text = value.getIf<String>())
        if (const auto bits = readWholeNumber(*text).bits; bits && *bits <= 0xFFFF)
            return static_cast<Integer>(*bits);
    return rounded<Integer>(converted<ToNumber>(value));
}

template <>
Converted<Long> to(const Variant& value) {
    return rounded<Long>(converted<ToNumber>(value));
}

template <>
Converted<Double> to(const Variant& value) {
    return converted<ToNumber>(value);
}

Converted<Date> toDate(const Variant& value, eLanguage language) {
    if (const auto* text = value.getIf<String>()) {
        const auto date = dateIn(Trim(*text), language);
        if (!date) return ErrorNumber::TypeMismatch;
        return *date;
    }
    auto number = converted<ToNumber>(value);
    if (number.failure()) return *number.failure();
    if (!isDateInRange(number.value())) return ErrorNumber::Overflow;
    return Date{number.value()};
}

String CStr(const Variant& value) {
    return to<String>(value).orRaise();
}

Boolean CBool(const Variant& value) {
    return to<Boolean>(value).orRaise();
}

Integer CInt(const Variant& value) {
    return to<Integer>(value).orRaise();
}

Long CLng(const Variant& value) {
    return to<Long>(value).orRaise();
}

Double CDbl(const Variant& value) {
    return to<Double>(value).orRaise();
}

Date CDate(const Variant& value, eLanguage language) {
    return toDate(value, language).orRaise();
}

Long roundToLong(Double value) {
    return rounded<Long>(Converted<Double>(value)).orRaise();
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
