#include "tools/typed_number.h"

#include <algorithm>
#include <cmath>

#include "convert/number_marks.h"
#include "runtime/convert.h"

namespace quorkit::tools {
namespace {

bool marksThousands(char16_t unit, char16_t decimal) {
    return convert::isOneOf(unit, convert::kApostrophes) ||
           convert::isOneOf(unit, convert::kNumberBlanks) ||
           (convert::isOneOf(unit, convert::kPoints) && unit != decimal);
}

/// Adds the whole number that begins at `at` without its thousands marks, and goes behind it. False
/// when these marks are not where they belong.
bool addWhole(StringView text, std::size_t& at, char16_t decimal, String& result) {
    char16_t mark = u'\0';
    std::size_t digits = 0;  // behind the last mark
    for (; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (convert::isDigit(unit)) {
            ++digits;
            result += unit;
            continue;
        }
        const bool between = at + 1 < text.size() && convert::isDigit(text[at + 1]);
        if (!between || !marksThousands(unit, decimal)) break;
        if (mark == u'\0' ? digits > 3 : (digits != 3 || unit != mark)) return false;
        mark = unit;
        digits = 0;
    }
    return mark == u'\0' || digits == 3;
}

/// Adds what stands around a whole number, with a full stop for the decimal mark. False when there
/// is a point that is none.
bool addAround(StringView text, char16_t decimal, String& result) {
    for (const char16_t unit : text) {
        if (convert::isOneOf(unit, convert::kPoints) && unit != decimal) return false;
        result += unit == decimal ? u'.' : unit;
    }
    return true;
}

/// The number as the runtime reads it. Nothing when its marks are not where they belong.
std::optional<String> plain(StringView text, char16_t decimal) {
    String result;
    auto at = static_cast<std::size_t>(std::ranges::find_if(text, convert::isDigit) - text.begin());
    if (!addAround(text.substr(0, at), decimal, result)) return {};
    if (!addWhole(text, at, decimal, result)) return {};
    if (!addAround(text.substr(at), decimal, result)) return {};
    return result;
}

}  // namespace

std::optional<Double> typedNumber(StringView text, eLanguage language) {
    if (text.find(u'&') != StringView::npos) return {};
    const bool comma = language == eLanguage_German || language == eLanguage_French ||
                       language == eLanguage_Italian || language == eLanguage_Spanish;
    for (const char16_t decimal : comma ? StringView(u",.") : StringView(u".")) {
        const auto digits = plain(text, decimal);
        const auto number = digits ? runtime::numberIn(*digits) : std::nullopt;
        if (number && std::isfinite(*number)) return number;
    }
    return {};
}

}  // namespace quorkit::tools
