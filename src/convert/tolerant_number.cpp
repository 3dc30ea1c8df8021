#include <quorkit/GQuorConvert.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "frame/error_patterns.h"
#include "runtime/convert.h"
#include "runtime/number_text.h"
#include "runtime/trim.h"

namespace quorkit {
namespace {

constexpr StringView kBlanks = u" \u00A0\u2009\u202F";  // no-break, thin, narrow no-break
constexpr StringView kApostrophes = u"'\u2019";
constexpr StringView kPoints = u".,";
constexpr StringView kMinuses = u"-\u2013\u2212";

bool isOneOf(char16_t unit, StringView units) {
    return units.find(unit) != StringView::npos;
}

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

/// Puts the first number of a text, written as people do, into the form that the runtime reads.
class Reader {
   public:
    explicit Reader(StringView text) : text_(text) {}

    /// Empty when there is no number.
    std::string number() {
        const auto digit = std::ranges::find_if(text_, isDigit);
        if (digit == text_.end()) return {};
        next_ = static_cast<std::size_t>(digit - text_.begin());
        if (startsWithPoint()) --next_;
        std::string result = isNegative() ? "-" : "";
        result += mantissa();
        result += exponent();
        return result;
    }

   private:
    char16_t at(std::size_t position) const {
        return position < text_.size() ? text_[position] : u'\0';
    }

    /// ".5" has a decimal mark in front of the digit, "Fr.5" a full stop.
    bool startsWithPoint() const {
        if (next_ == 0 || !isOneOf(text_[next_ - 1], kPoints)) return false;
        return next_ == 1 || text_[next_ - 2] == u'+' || isOneOf(text_[next_ - 2], kMinuses) ||
               isOneOf(text_[next_ - 2], kBlanks);
    }

    bool isNegative() const {
        const auto before = text_.substr(0, next_).find_last_not_of(kBlanks);
        return before != StringView::npos && isOneOf(text_[before], kMinuses);
    }

    /// Whether the number goes on behind the next character, which is none of its digits.
    bool isMark(bool pointSeen) const {
        const char16_t unit = at(next_);
        if (!isDigit(at(next_ + 1))) return false;
        if (isOneOf(unit, kPoints) || isOneOf(unit, kApostrophes)) return true;
        return isOneOf(unit, kBlanks) && !pointSeen && isDigit(at(next_ + 2)) &&
               isDigit(at(next_ + 3)) && !isDigit(at(next_ + 4));
    }

    /// The digits with a full stop as the decimal mark.
    std::string mantissa() {
        std::string digitsAndPoints;
        std::size_t lastPoint = std::string::npos;
        for (; isDigit(at(next_)) || isMark(lastPoint != std::string::npos); ++next_) {
            if (isOneOf(text_[next_], kPoints)) lastPoint = digitsAndPoints.size();
            if (isDigit(text_[next_]) || isOneOf(text_[next_], kPoints))
                digitsAndPoints += static_cast<char>(text_[next_]);
        }
        if (lastPoint == std::string::npos) return digitsAndPoints;

        const bool isDecimal = std::ranges::count(digitsAndPoints, digitsAndPoints[lastPoint]) == 1;
        std::string result;
        for (std::size_t i = 0; i < digitsAndPoints.size(); ++i) {
            if (isDigit(static_cast<char16_t>(digitsAndPoints[i])))
                result += digitsAndPoints[i];
            else if (i == lastPoint && isDecimal)
                result += '.';
        }
        return result;
    }

    /// "e", a sign and digits, or a part of that, which the runtime ignores.
    std::string exponent() const {
        if (!isOneOf(at(next_), u"eE")) return {};
        std::size_t end = next_ + 1;
        if (isOneOf(at(end), u"+-")) ++end;
        while (isDigit(at(end))) ++end;
        const StringView tail = text_.substr(next_, end - next_);
        return std::string(tail.begin(), tail.end());
    }

    StringView text_;
    std::size_t next_ = 0;
};

Double tolerant(StringView text) {
    // People end round prices with a dash, "5.-"; the runtime would take it for a sign.
    const bool dashed = runtime::Trim(text).ends_with(u'-');
    const auto exact = dashed ? std::nullopt : runtime::numberIn(text);
    const Double value = exact ? *exact : runtime::readNumber(Reader(text).number()).value;
    return std::isfinite(value) ? value : 0;
}

}  // namespace

Double GQuorConvert::myVal(const Variant& vValue) {
    if (const auto* text = vValue.getIf<String>()) return tolerant(*text);
    return onErrorReturn(0.0, [&] { return runtime::CDbl(vValue); });
}

}  // namespace quorkit
