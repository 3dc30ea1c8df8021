#include "tools/typed_number.h"

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

/// The number without thousands marks and with a full stop as decimal mark. Nothing when a mark is
/// in a wrong place.
std::optional<String> plain(StringView text, char16_t decimal) {
    String result;
    char16_t group = u'\0';
    std::size_t digits = 0;  // since the last mark
    bool whole = true;       // before the decimal mark and the exponent
    const auto groupIsFull = [&] { return group == u'\0' || digits == 3; };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (convert::isDigit(unit)) {
            ++digits;
            result += unit;
            continue;
        }
        const bool between =
            whole && digits > 0 && i + 1 < text.size() && convert::isDigit(text[i + 1]);
        if (between && marksThousands(unit, decimal)) {
            if (group == u'\0' ? digits > 3 : (digits != 3 || unit != group)) return {};
            group = unit;
            digits = 0;
            continue;
        }
        if (whole && digits > 0) {
            if (!groupIsFull()) return {};
            whole = false;
        }
        if (convert::isOneOf(unit, convert::kPoints) && unit != decimal) return {};
        result += unit == decimal ? u'.' : unit;
    }
    if (whole && !groupIsFull()) return {};
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
