#include <quorkit/GQuorConvert.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>

#include "base/letter_case.h"
#include "runtime/convert.h"
#include "runtime/trim.h"
#include "runtime/val.h"

namespace quorkit {
namespace {

void requireBase(Integer base) {
    if (base < 2 || base > 36) raise(ErrorNumber::InvalidProcedureCall);
}

/// Error 13 when `unit` is no digit of the base.
Long digitValue(char16_t unit, Integer base) {
    constexpr StringView digits = u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const char16_t capital = unit < 0x80 ? base::toUpper(unit) : unit;
    const auto value = digits.substr(0, static_cast<std::size_t>(base)).find(capital);
    if (value == StringView::npos) raise(ErrorNumber::TypeMismatch);
    return static_cast<Long>(value);
}

/// A base in which programs write the bits of a number, and its prefix.
struct BitBase {
    Integer base;
    StringView prefix;
};
constexpr BitBase kBitBases[] = {{16, u"0X"}, {16, u"&H"}, {8, u"&O"}, {2, u"0B"}};

}  // namespace

Long GQuorConvert::HexToDec(const String& HexValue) {
    const String prefix = base::toUpper(StringView(HexValue).substr(0, 2));
    if (prefix == u"&H") return runtime::roundToLong(runtime::Val(HexValue));
    return runtime::roundToLong(
        runtime::Val(u"&H" + (prefix == u"0X" ? HexValue.substr(2) : HexValue)));
}

String GQuorConvert::ConvertDezToAny(Long lValue, Integer iBase, Optional<Integer> iMinLength) {
    requireBase(iBase);
    char digits[32];
    char* const end =
        std::to_chars(digits, std::end(digits), std::abs(std::int64_t{lValue}), iBase).ptr;
    const auto missing = std::max<std::ptrdiff_t>(*iMinLength - (end - digits), 0);
    return (lValue < 0 ? u"-" : u"") + String(static_cast<std::size_t>(missing), u'0') +
           base::toUpper(String(digits, end));
}

Long GQuorConvert::ConvertAnyToDez(const String& sValue, Integer iBase) {
    constexpr std::int64_t tooLarge = std::int64_t{1} << 32;
    requireBase(iBase);
    StringView digits = runtime::Trim(sValue);
    const bool negative = digits.starts_with(u'-');
    const bool hasSign = negative || digits.starts_with(u'+');
    if (hasSign) digits.remove_prefix(1);
    const String start = base::toUpper(digits.substr(0, 2));
    bool bits = false;
    for (const BitBase& one : kBitBases) {
        if (one.base != iBase) continue;
        bits = !hasSign;
        if (one.prefix == start) digits.remove_prefix(start.size());
    }
    if (digits.empty()) raise(ErrorNumber::TypeMismatch);
    std::int64_t value = 0;
    for (const char16_t unit : digits)
        value = std::min(value * iBase + digitValue(unit, iBase), tooLarge);
    if (bits && value < tooLarge) return static_cast<Long>(static_cast<std::uint32_t>(value));
    return runtime::roundToLong(static_cast<Double>(negative ? -value : value));
}

}  // namespace quorkit
