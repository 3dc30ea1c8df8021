// Texts as dates, and formats. Fields: a text, a format, a number of seconds, a language. Finds:
// dates whose text is not read back, in any language; formats that fail or lose characters.
#include <array>
#include <cmath>

#include "json/iso_date.h"
#include "runtime/calendar.h"
#include "runtime/date_format.h"
#include "runtime/date_language.h"
#include "runtime/date_text.h"
#include "support/target.h"

namespace quorkit::fuzz {
namespace {

using runtime::dateIn;
using runtime::Format;

void promiseRead(const String& text, eLanguage language, Date date) {
    const auto read = dateIn(text, language);
    if (read == std::optional(date)) return;
    breakPromise("a date is read as it was written", shown(read ? read->days : NAN),
                 shown(date.days) + " from " + shown(text));
}

/// In whole seconds.
void checkDate(Date date) {
    promise(runtime::isDateInRange(date.days), "a date is one of the calendar");
    promise(runtime::dateOf(runtime::partsOf(date)) == date, "a date is what it shows");
    promiseRead(runtime::dateText(date), eLanguage_English, date);
    const Date day{std::trunc(date.days)};
    for (const runtime::DateLanguage& one : runtime::dateLanguages()) {
        const String time = Format(date, u"ttttt", one.language);
        promiseRead(Format(date, u"c", one.language), one.language, date);
        promiseRead(Format(date, u"Long Date", one.language), one.language, day);
        promiseRead(Format(date, u"Long Date", one.language) + u", " + time, one.language, date);
        promiseRead(Format(date, u"ddd d-mmm-yyyy", one.language), one.language, day);
    }
    const auto iso = json::toIsoDate(date);
    promise(iso && json::fromIsoDate(*iso) == std::optional(date), "a date comes back from JSON");
}

/// The output of a format that contains no tokens.
void checkCopied(const String& text, Date date, eLanguage language) {
    String escaped;
    for (const char16_t unit : text) escaped.append({u'\\', unit});
    if (!text.empty())
        promiseEqual(Format(date, escaped, language), text, "escaped characters are copied");
    if (!text.empty() && text.find(u'"') == String::npos)
        promiseEqual(Format(date, u'"' + text + u'"', language), text, "quoted text is copied");
}

}  // namespace

void run(std::string_view input) {
    constexpr std::array languages = {eLanguage_English, eLanguage_German, eLanguage_French,
                                      eLanguage_Italian};
    Fields fields(input);
    const String text = fields.text();
    const String format = fields.text();
    const Long seconds = fields.number();
    const eLanguage language = languages[static_cast<std::uint32_t>(fields.number()) % 4];

    constexpr double secondsOfDay = 86'400;
    Date date{static_cast<double>(seconds) / secondsOfDay};
    if (const auto read = dateIn(text, language)) date = *read;
    date = runtime::dateOf(runtime::partsOf(date));
    checkDate(date);
    checkCopied(text, date, language);
    const String written = Format(date, format, language);
    promise(written.size() <= 64 + 64 * format.size(), "a format writes no more than its tokens");
}

}  // namespace quorkit::fuzz
