#include "runtime/date_format.h"

#include <quorkit/date_formats.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>
#include <string_view>

#include "base/letter_case.h"
#include "base/published_names.h"
#include "runtime/calendar.h"
#include "runtime/date_language.h"

namespace quorkit {
namespace runtime {
namespace {

void appendPattern(String& out, Date date, StringView pattern, const DateLanguage& language);

/// Writes a date into a text.
struct Writer {
    String& out;
    Date date;
    SystemTime parts;
    const DateLanguage& language;
    bool twelveHours;
    StringView token;  ///< the current one, as the format spells it

    void number(int value, std::size_t digits) {
        const std::string text = std::to_string(value);
        out.append(digits - std::min(digits, text.size()), u'0').append(text.begin(), text.end());
    }
    void hour(std::size_t digits) {
        number(twelveHours ? (parts.hour + 11) % 12 + 1 : parts.hour, digits);
    }
    void name(const StringView* names, int number) { out += names[number - 1]; }
    void pattern(StringView pattern) { appendPattern(out, date, pattern, language); }
    /// Writes the designator of the half of the day, in small letters when the token is in small
    /// letters.
    void half(StringView before, StringView after) {
        const StringView mark = parts.hour < 12 ? before : after;
        out += base::toLower(token[0]) == token[0] ? base::toLower(mark) : String(mark);
    }
    void general() {
        const Double day = std::trunc(date.days);
        if (day != 0) pattern(language.shortDate);
        if (day != 0 && date.days != day) out += u' ';
        if (day == 0 || date.days != day) pattern(language.time);
    }
};

struct Token : DateToken {
    void (*write)(Writer& w);
};

constexpr Token kTokens[] = {
    {{"c",
      "The date as `ddddd` and the time as `ttttt`; the date alone at midnight, the time "
      "alone on day 0."},
     [](Writer& w) { w.general(); }},
    {{"d", "Day of the month, 1 to 31."}, [](Writer& w) { w.number(w.parts.day, 1); }},
    {{"dd", "Day of the month, 01 to 31."}, [](Writer& w) { w.number(w.parts.day, 2); }},
    {{"ddd", "Short name of the day."},
     [](Writer& w) { w.name(w.language.shortDays, Weekday(w.date)); }},
    {{"dddd", "Name of the day."}, [](Writer& w) { w.name(w.language.days, Weekday(w.date)); }},
    {{"ddddd",
      "The short date: `dd.mm.yyyy` in German, `dd/mm/yyyy` in French and Italian, `m/d/yyyy` in "
      "English."},
     [](Writer& w) { w.pattern(w.language.shortDate); }},
    {{"dddddd",
      "The long date: `dddd, d. mmmm yyyy` in German, `dddd d mmmm yyyy` in French and Italian, "
      "`dddd, mmmm d, yyyy` in English."},
     [](Writer& w) { w.pattern(w.language.longDate); }},
    {{"w", "Day of the week, 1 (Sunday) to 7."}, [](Writer& w) { w.number(Weekday(w.date), 1); }},
    {{"ww", "Week of the year, 1 (with 1 January) to 54; weeks begin on Sunday."},
     [](Writer& w) { w.number((dayOfYear(w.date) - Weekday(w.date) + 13) / 7, 1); }},
    {{"m", "Month, 1 to 12; behind `h` or `hh`, whatever text is between, the minute as `n`."},
     [](Writer& w) { w.number(w.parts.month, 1); }},
    {{"mm", "Month, 01 to 12; behind `h` or `hh`, whatever text is between, the minute as `nn`."},
     [](Writer& w) { w.number(w.parts.month, 2); }},
    {{"mmm", "Short name of the month."},
     [](Writer& w) { w.name(w.language.shortMonths, w.parts.month); }},
    {{"mmmm", "Name of the month."}, [](Writer& w) { w.name(w.language.months, w.parts.month); }},
    {{"q", "Quarter, 1 to 4."}, [](Writer& w) { w.number((w.parts.month + 2) / 3, 1); }},
    {{"y", "Day of the year, 1 to 366."}, [](Writer& w) { w.number(dayOfYear(w.date), 1); }},
    {{"yy", "Last two digits of the year."}, [](Writer& w) { w.number(w.parts.year % 100, 2); }},
    {{"yyyy", "Year, 100 to 9999."}, [](Writer& w) { w.number(w.parts.year, 1); }},
    {{"h", "Hour, 0 to 23, or 1 to 12."}, [](Writer& w) { w.hour(1); }},
    {{"hh", "Hour, 00 to 23, or 01 to 12."}, [](Writer& w) { w.hour(2); }},
    {{"n", "Minute, 0 to 59."}, [](Writer& w) { w.number(w.parts.minute, 1); }},
    {{"nn", "Minute, 00 to 59."}, [](Writer& w) { w.number(w.parts.minute, 2); }},
    {{"s", "Second, 0 to 59."}, [](Writer& w) { w.number(w.parts.second, 1); }},
    {{"ss", "Second, 00 to 59."}, [](Writer& w) { w.number(w.parts.second, 2); }},
    {{"ttttt", "The time: `hh:nn:ss`, in English `h:nn:ss AM/PM`."},
     [](Writer& w) { w.pattern(w.language.time); }},
    {{"AM/PM", "AM before noon, PM after it; in small letters for `am/pm`."},
     [](Writer& w) { w.half(u"AM", u"PM"); }},
    {{"A/P", "A before noon, P after it; in small letters for `a/p`."},
     [](Writer& w) { w.half(u"A", u"P"); }},
    {{"AMPM", "The language's AM or PM, which are these two in all languages."},
     [](Writer& w) { w.out += w.parts.hour < 12 ? u"AM" : u"PM"; }},
    {{"/",
      "The language's date separator: a full stop in German, in the others a slash, which no file "
      "name takes."},
     [](Writer& w) { w.out += w.language.dateSeparator; }},
    {{":", "The language's time separator, a colon in all languages."},
     [](Writer& w) { w.out += u':'; }},
};

constexpr DateFormatName kNames[] = {
    {"General Date", "c"},   {"Long Date", "dddddd"}, {"Medium Date", "dd-mmm-yy"},
    {"Short Date", "ddddd"}, {"Long Time", "ttttt"},  {"Medium Time", "hh:nn AM/PM"},
    {"Short Time", "hh:nn"},
};

/// The longest token at the start of `text`; null when there is none.
const Token* tokenAt(StringView text) {
    const Token* longest = nullptr;
    std::size_t length = 0;
    const char16_t first = base::toLower(text[0]);
    for (const Token& one : kTokens) {
        if (first != base::toLower(static_cast<char16_t>(one.token[0]))) continue;
        const std::string_view spelling = one.token;
        if (spelling.size() <= length || !base::sameName(text.substr(0, spelling.size()), spelling))
            continue;
        longest = &one;
        length = spelling.size();
    }
    return longest;
}

/// Splits a format into tokens and pieces of text to be copied.
class Pieces {
   public:
    explicit Pieces(StringView format) : rest_(format) {}

    const Token* token = nullptr;  ///< null for a piece of text
    StringView text;               ///< the piece, as in the format

    bool next() {
        if (rest_.empty()) return false;
        token = nullptr;
        if (rest_[0] == u'"')
            takeQuoted();
        else if (rest_[0] == u'\\')
            takeEscaped();
        else if (const Token* found = tokenAt(rest_))
            takeToken(*found);
        else
            text = take(1);
        return true;
    }

   private:
    StringView take(std::size_t length) {
        const StringView taken = rest_.substr(0, length);
        rest_.remove_prefix(taken.size());
        return taken;
    }
    /// Text without an end mark reaches to the end of the format.
    void takeQuoted() {
        take(1);
        text = take(std::min(rest_.find(u'"'), rest_.size()));
        take(1);
    }
    void takeEscaped() {
        take(1);
        text = take(1);
    }
    void takeToken(const Token& found) {
        text = take(std::string_view(found.token).size());
        const bool separator = text == u"/" || text == u":";
        const bool minute = afterHour_ && found.token[0] == 'm' && text.size() <= 2;
        token = minute ? tokenAt(StringView(u"nn").substr(0, text.size())) : &found;
        if (!separator) afterHour_ = found.token[0] == 'h';
    }

    StringView rest_;
    bool afterHour_ = false;
};

bool hasTwelveHours(StringView pattern) {
    for (Pieces pieces(pattern); pieces.next();)
        if (pieces.token != nullptr && pieces.token->token[0] == 'A') return true;
    return false;
}

void appendPattern(String& out, Date date, StringView pattern, const DateLanguage& language) {
    Writer writer{out, date, partsOf(date), language, hasTwelveHours(pattern), {}};
    for (Pieces pieces(pattern); pieces.next();) {
        writer.token = pieces.text;
        if (pieces.token != nullptr)
            pieces.token->write(writer);
        else
            out += pieces.text;
    }
}

}  // namespace

String Format(Date date, StringView format, eLanguage language) {
    std::string_view named = format.empty() ? "c" : "";
    for (const auto& [name, meaning] : kNames)
        if (base::sameName(format, name)) named = meaning;
    const String pattern = named.empty() ? String(format) : String(named.begin(), named.end());

    String out;
    appendPattern(out, dateOf(partsOf(date)), pattern, dateLanguage(language));
    return out;
}

}  // namespace runtime

std::vector<DateToken> dateTokens() {
    return {std::begin(runtime::kTokens), std::end(runtime::kTokens)};
}

std::span<const DateFormatName> dateFormatNames() {
    return runtime::kNames;
}

}  // namespace quorkit
