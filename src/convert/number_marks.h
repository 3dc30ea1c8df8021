// Characters other than digits with which people write numbers.
#pragma once

#include <quorkit/values.h>

namespace quorkit::convert {

inline constexpr StringView kNumberBlanks = u" \u00A0\u2009\u202F";  // the narrow ones too
inline constexpr StringView kApostrophes = u"'\u2019";
inline constexpr StringView kPoints = u".,";
inline constexpr StringView kMinuses = u"-\u2013\u2212";

inline bool isOneOf(char16_t unit, StringView units) {
    return units.find(unit) != StringView::npos;
}

inline bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

}  // namespace quorkit::convert
