#include "convert/amount.h"

#include <algorithm>

#include "base/letter_case.h"
#include "convert/number_marks.h"
#include "runtime/trim.h"

namespace quorkit::convert {
namespace {

enum class Side { Front, Behind };

bool isParenthesis(char16_t unit) {
    return unit == u'(' || unit == u')';
}

bool ends(char16_t unit) {
    return isOneOf(unit, kNumberBlanks) || isOneOf(unit, kMinuses) || isParenthesis(unit);
}

bool isLetterOrDigit(char16_t unit) {
    return isDigit(unit) || base::toLower(unit) != base::toUpper(unit);
}

bool isSign(char16_t unit) {
    return isOneOf(unit, u"$\u00A2\u00A3\u00A4\u00A5") || (unit >= 0x20A0 && unit <= 0x20CF);
}

/// A sign with or without letters (US$), the three capitals of a code, or an abbreviation.
bool isCurrency(StringView word) {
    if (word.ends_with(u'.')) word.remove_suffix(1);
    if (word.size() > 4 || std::ranges::any_of(word, isDigit)) return false;
    if (std::ranges::any_of(word, isSign)) return true;
    if (word.size() == 3 &&
        std::ranges::all_of(word, [](char16_t unit) { return unit >= u'A' && unit <= u'Z'; }))
        return true;
    return std::ranges::any_of(std::initializer_list<StringView>{u"fr", u"sfr", u"kr"},
                               [&](StringView one) { return base::sameText(one, word); });
}

bool hasCommaGroups(StringView currency) {
    return currency.find_first_of(u"$\u00A3") != StringView::npos || currency == u"USD" ||
           currency == u"GBP";
}

/// Takes the word next to the number: a minus, a parenthesis, or all up to one of these or a blank.
/// Empty at the end of the text.
StringView takeWord(StringView& text, Side side) {
    text = runtime::without(kNumberBlanks, text);
    if (text.empty()) return {};
    std::size_t length = 1;
    const auto unit = [&](std::size_t i) {
        return side == Side::Front ? text[text.size() - 1 - i] : text[i];
    };
    if (!ends(unit(0)))
        while (length < text.size() && !ends(unit(length))) ++length;
    const std::size_t rest = text.size() - length;
    const StringView word = side == Side::Front ? text.substr(rest) : text.substr(0, length);
    text = side == Side::Front ? text.substr(0, rest) : text.substr(length);
    return word;
}

/// What one side of the number says about it.
struct Beside {
    bool minus = false;
    bool parenthesis = false;
    bool commaGroups = false;
    bool alone = false;  ///< nothing else is on that side
};

Beside readBeside(StringView text, Side side) {
    Beside seen;
    bool currency = false;
    for (;;) {
        const StringView word = takeWord(text, side);
        if (word.empty()) {
            seen.alone = true;
            return seen;
        }
        // A minus in front of a currency may also be the hyphen between two words.
        const bool hyphen =
            side == Side::Front && currency && !text.empty() && isLetterOrDigit(text.back());
        if (isOneOf(word[0], kMinuses) && !seen.minus && !hyphen) {
            seen.minus = true;
        } else if (word == (side == Side::Front ? u"(" : u")") && !seen.parenthesis) {
            seen.parenthesis = true;
        } else if (isCurrency(word) && !currency) {
            currency = true;
            seen.commaGroups = hasCommaGroups(word);
        } else {
            return seen;
        }
    }
}

}  // namespace

Amount amountBetween(StringView front, StringView behind) {
    const Beside before = readBeside(front, Side::Front);
    const Beside after = readBeside(behind, Side::Behind);
    const bool enclosed = before.parenthesis && after.parenthesis && before.alone && after.alone;
    return {before.minus || (after.minus && after.alone) || enclosed,
            before.commaGroups || after.commaGroups};
}

}  // namespace quorkit::convert
