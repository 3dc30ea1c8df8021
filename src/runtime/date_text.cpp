#include "runtime/date_text.h"

#include <algorithm>
#include <cstdio>
#include <span>
#include <utility>

#include "base/letter_case.h"
#include "runtime/calendar.h"
#include "runtime/date_language.h"

namespace quorkit::runtime {
namespace {

// Each function that takes something off the front of a text returns whether it was there. If not,
// the text is left in no useful state; `attempt` restores it.

bool take(StringView& text, StringView oneOf) {
    if (text.empty() || oneOf.find(text[0]) == StringView::npos) return false;
    text.remove_prefix(1);
    return true;
}

void skipBlanks(StringView& text) {
    text.remove_prefix(std::min(text.find_first_not_of(u" \u00A0"), text.size()));
}

/// Takes one of the marks, with any blanks around it, and returns it.
StringView takeMark(StringView& text, StringView marks) {
    skipBlanks(text);
    const StringView mark = text.substr(0, 1);
    const bool taken = take(text, marks);
    skipBlanks(text);
    return taken ? mark : StringView();
}

/// Takes blanks and one of the marks; one of the two may be missing.
bool takeGap(StringView& text, StringView marks) {
    const std::size_t before = text.size();
    takeMark(text, marks);
    return text.size() < before;
}

struct Number {
    int value = 0;
    std::size_t digits = 0;
};

bool takeNumber(StringView& text, Number& number, std::size_t mostDigits) {
    number = {};
    while (number.digits < mostDigits && !text.empty() && text[0] >= u'0' && text[0] <= u'9') {
        number.value = number.value * 10 + (text[0] - u'0');
        ++number.digits;
        text.remove_prefix(1);
    }
    return number.digits != 0;
}

/// Takes a word, with a full stop behind it if there is one.
StringView takeWord(StringView& text) {
    const StringView word = text.substr(0, text.find_first_of(u" \u00A0.,-/:0123456789"));
    text.remove_prefix(word.size());
    take(text, u".");
    return word;
}

/// The position of the word among the names, counted from 1; 0 when it is none of them.
int positionIn(std::span<const StringView> names, StringView word) {
    const auto found = std::ranges::find_if(names, [&](StringView name) {
        if (name.ends_with(u'.')) name.remove_suffix(1);
        return base::sameText(name, word);
    });
    return found == names.end() ? 0 : static_cast<int>(found - names.begin()) + 1;
}

/// A further spelling of a month, beside the names that are written.
struct Spelling {
    StringView name;
    int month;
};
constexpr Spelling kOtherMonths[] = {{u"J\u00E4nner", 1}, {u"Maerz", 3}, {u"Mrz", 3}, {u"Sept", 9}};

int monthNamed(StringView word) {
    for (const auto& [name, month] : kOtherMonths)
        if (base::sameText(name, word)) return month;
    for (const DateLanguage& one : dateLanguages())
        for (const int month : {positionIn(one.months, word), positionIn(one.shortMonths, word)})
            if (month != 0) return month;
    return 0;
}

bool isDayName(StringView word) {
    if (base::sameText(word, u"Sonnabend")) return true;
    return std::ranges::any_of(dateLanguages(), [&](const DateLanguage& one) {
        return positionIn(one.days, word) != 0 || positionIn(one.shortDays, word) != 0;
    });
}

bool setDay(SystemTime& parts, Number year, Number month, Number day) {
    const int full = year.digits > 2 ? year.value : fullYear(year.value);
    if (!isDay(full, month.value, day.value)) return false;
    parts.year = full;
    parts.month = month.value;
    parts.day = day.value;
    return true;
}

bool takeNumericDay(StringView& text, SystemTime& parts, bool monthFirst) {
    Number numbers[3];
    auto& [first, second, third] = numbers;
    if (!takeNumber(text, first, 4)) return false;
    const StringView mark = takeMark(text, u"./-");
    if (mark.empty() || !takeNumber(text, second, 2)) return false;
    if (takeMark(text, mark).empty() || !takeNumber(text, third, 4)) return false;

    if (first.digits > 2) return third.digits <= 2 && setDay(parts, first, second, third);
    if (monthFirst && mark != u".") std::swap(first, second);
    return setDay(parts, third, second, first) || setDay(parts, third, first, second);
}

bool takeNamedDay(StringView& text, SystemTime& parts) {
    Number day;
    Number year;
    const bool dayFirst = takeNumber(text, day, 2);
    if (dayFirst) takeGap(text, u".-");
    const Number month{monthNamed(takeWord(text)), 1};
    takeGap(text, u",-");
    if (!dayFirst && !(takeNumber(text, day, 2) && takeGap(text, u".,-"))) return false;
    return takeNumber(text, year, 4) && setDay(parts, year, month, day);
}

bool takeTime(StringView& text, SystemTime& parts) {
    Number hour;
    Number minute;
    Number second;
    if (!takeNumber(text, hour, 2)) return false;
    const bool withMinute = take(text, u":");
    if (withMinute && !takeNumber(text, minute, 2)) return false;
    if (withMinute && take(text, u":") && !takeNumber(text, second, 2)) return false;

    constexpr StringView halves[] = {u"AM", u"PM"};
    StringView behind = text;
    skipBlanks(behind);
    const int half = positionIn(halves, takeWord(behind));
    if (half != 0) text = behind;
    if (half == 0 && !withMinute) return false;
    if (half == 1 && hour.value == 12) hour.value = 0;
    if (half == 2 && hour.value < 12) hour.value += 12;

    if (hour.value > 23 || minute.value > 59 || second.value > 59) return false;
    parts.hour = hour.value;
    parts.minute = minute.value;
    parts.second = second.value;
    return true;
}

template <class Take>
bool attempt(StringView& text, Take take) {
    StringView rest = text;
    if (!take(rest)) return false;
    text = rest;
    return true;
}

bool takeDay(StringView& text, SystemTime& parts, bool monthFirst) {
    const auto numeric = [&](StringView& rest) { return takeNumericDay(rest, parts, monthFirst); };
    const auto named = [&](StringView& rest) { return takeNamedDay(rest, parts); };
    // A month's name is tried first, because "mar" is also a Tuesday.
    if (attempt(text, named) || attempt(text, numeric)) return true;
    return isDayName(takeWord(text)) && takeGap(text, u",") &&
           (attempt(text, named) || attempt(text, numeric));
}

}  // namespace

String dateText(Date date) {
    const SystemTime parts = partsOf(date);
    const bool midnight = parts.hour == 0 && parts.minute == 0 && parts.second == 0;
    char buffer[80];
    const int length = std::snprintf(
        buffer, sizeof buffer, midnight ? "%04d-%02d-%02d" : "%04d-%02d-%02d %02d:%02d:%02d",
        parts.year, parts.month, parts.day, parts.hour, parts.minute, parts.second);
    return String(buffer, buffer + length);
}

std::optional<Date> dateIn(StringView text, eLanguage language) {
    const bool monthFirst = dateLanguage(language).monthFirst();
    SystemTime parts = partsOf({0});
    bool hasDay = false;
    bool hasTime = false;
    do {
        if (!hasTime && attempt(text, [&](StringView& rest) { return takeTime(rest, parts); }))
            hasTime = true;
        else if (!hasDay &&
                 attempt(text, [&](StringView& rest) { return takeDay(rest, parts, monthFirst); }))
            hasDay = true;
        else
            return {};
    } while (takeGap(text, u",") || (hasDay && !hasTime && take(text, u"T")));
    if (!text.empty()) return {};
    return dateOf(parts);
}

}  // namespace quorkit::runtime
