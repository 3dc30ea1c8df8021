#include <quorkit/GQuorConvert.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "convert/amount.h"
#include "convert/number_marks.h"
#include "frame/error_patterns.h"
#include "runtime/convert.h"
#include "runtime/number_text.h"
#include "runtime/trim.h"

namespace quorkit {
namespace {

/// Converts the first number of a text, as people write it, into the form that the runtime reads.
class Reader {
   public:
    explicit Reader(StringView text) : text_(text) {}

    /// Empty when there is no number.
    std::string number() {
        const auto digit = std::ranges::find_if(text_, convert::isDigit);
        if (digit == text_.end()) return {};
        next_ = static_cast<std::size_t>(digit - text_.begin());
        if (startsWithPoint()) --next_;
        const StringView front = text_.substr(0, next_);
        const std::string digits = digitsAndPoints();
        const std::string power = exponent();
        const convert::Amount amount = convert::amountBetween(front, text_.substr(next_));
        return (amount.negative ? "-" : "") + mantissa(digits, amount.commaGroups) + power;
    }

   private:
    char16_t at(std::size_t position) const {
        return position < text_.size() ? text_[position] : u'\0';
    }

    /// The full stop of ".5" is a decimal mark, that of "Fr.5" is not.
    bool startsWithPoint() const {
        if (next_ == 0 || !convert::isOneOf(text_[next_ - 1], convert::kPoints)) return false;
        return next_ == 1 || text_[next_ - 2] == u'+' ||
               convert::isOneOf(text_[next_ - 2], convert::kMinuses) ||
               convert::isOneOf(text_[next_ - 2], convert::kNumberBlanks);
    }

    /// Whether the next character, which is no digit, is a mark within the number.
    bool isMark(bool pointSeen) const {
        const char16_t unit = at(next_);
        if (!convert::isDigit(at(next_ + 1))) return false;
        if (convert::isOneOf(unit, convert::kPoints) ||
            convert::isOneOf(unit, convert::kApostrophes))
            return true;
        return convert::isOneOf(unit, convert::kNumberBlanks) && !pointSeen &&
               convert::isDigit(at(next_ + 2)) && convert::isDigit(at(next_ + 3)) &&
               !convert::isDigit(at(next_ + 4));
    }

    std::string digitsAndPoints() {
        std::string result;
        bool pointSeen = false;
        for (; convert::isDigit(at(next_)) || isMark(pointSeen); ++next_) {
            const bool isPoint = convert::isOneOf(text_[next_], convert::kPoints);
            pointSeen |= isPoint;
            if (isPoint || convert::isDigit(text_[next_]))
                result += static_cast<char>(text_[next_]);
        }
        return result;
    }

    /// The digits, with a full stop as decimal mark.
    static std::string mantissa(const std::string& marked, bool commaGroups) {
        const std::size_t last = marked.find_last_of(".,");
        if (last == std::string::npos) return marked;
        const bool thousand = commaGroups && marked[last] == ',' && marked.size() - last == 4 &&
                              last >= 1 && last <= 3 && marked[0] != '0';
        const bool isDecimal = std::ranges::count(marked, marked[last]) == 1 && !thousand;
        std::string result;
        for (std::size_t i = 0; i < marked.size(); ++i) {
            if (convert::isDigit(static_cast<char16_t>(marked[i])))
                result += marked[i];
            else if (i == last && isDecimal)
                result += '.';
        }
        return result;
    }

    /// "e", a sign and digits. Empty, and nothing is taken, unless all are there.
    std::string exponent() {
        if (!convert::isOneOf(at(next_), u"eE")) return {};
        std::size_t end = next_ + 1;
        if (convert::isOneOf(at(end), u"+-")) ++end;
        if (!convert::isDigit(at(end))) return {};
        while (convert::isDigit(at(end))) ++end;
        const StringView tail = text_.substr(next_, end - next_);
        next_ = end;
        return std::string(tail.begin(), tail.end());
    }

    StringView text_;
    std::size_t next_ = 0;
};

Double tolerant(StringView text) {
    // People end round prices with a dash, "5.-", which the runtime would take for a sign.
    const bool dashed = runtime::Trim(text).ends_with(u'-');
    const auto exact = dashed ? std::nullopt : runtime::numberIn(text);
    const Double value = exact ? *exact : runtime::readNumber(Reader(text).number()).value;
    return std::isfinite(value) ? value : 0;
}

}  // namespace

Double GQuorConvert::myVal(const Variant& vValue) {
    if (const auto* text = vValue.getIf<String>()) return tolerant(*text);
    return frame::onErrorReturn(0.0, [&] { return runtime::CDbl(vValue); });
}

}  // namespace quorkit
