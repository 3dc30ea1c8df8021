// Assignments, variable fields and replacing. Fields: a text and three delimiters. Finds: results
// that differ from those of the plain definition.
#include <quorkit/GQuorStrings.h>
#include <quorkit/collection.h>
#include <quorkit/errors.h>
#include <quorkit/ports/memory.h>

#include <algorithm>
#include <vector>

#include "base/letter_case.h"
#include "support/target.h"

namespace quorkit::fuzz {
namespace {

constexpr auto kNowhere = String::npos;

std::size_t firstIn(StringView text, StringView pattern, std::size_t from) {
    return pattern.empty() || from > text.size() ? kNowhere : text.find(pattern, from);
}

String trim(StringView text) {
    while (text.starts_with(u' ')) text.remove_prefix(1);
    while (text.ends_with(u' ')) text.remove_suffix(1);
    return String(text);
}

struct Assignment {
    String name;
    String value;
};

std::vector<Assignment> assignmentsIn(StringView text, StringView equals, StringView quote,
                                      StringView comma) {
    std::vector<Assignment> all;
    for (std::size_t at = 0; at != kNowhere;) {
        const std::size_t end = firstIn(text, equals, at);
        if (end == kNowhere) break;
        const String name = trim(text.substr(at, end - at));
        at = end + 1;
        while (at < text.size() && text[at] < 33) ++at;
        std::size_t quotes = 0;
        while (quotes < 3 && !quote.empty() && text.substr(at).starts_with(quote)) ++at, ++quotes;
        String value;
        if (quotes == 0) {
            const std::size_t close = firstIn(text, comma, at);
            value = trim(text.substr(at, close - at));
        } else if (quotes != 2) {
            String closing;
            for (std::size_t i = 0; i < quotes; ++i) closing += quote;
            const std::size_t close = firstIn(text, closing, at);
            if (close == kNowhere) break;
            value = text.substr(at, close - at);
            at = close + quotes;
        }
        all.push_back({name, value});
        at = firstIn(text, comma, at);
        if (at != kNowhere) ++at;
    }
    return all;
}

enum class Repeats { None, Perhaps, Surely };

/// Whether a name comes twice. The letter case of characters beyond ASCII is not tested here.
Repeats repeats(const std::vector<Assignment>& all) {
    Repeats found = Repeats::None;
    for (std::size_t i = 0; i < all.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) {
            if (all[i].name.empty()) continue;
            if (all[i].name == all[j].name) return Repeats::Surely;
            if (base::toLower(all[i].name) == base::toLower(all[j].name)) found = Repeats::Perhaps;
        }
    return found;
}

void checkAssignments(GQuorStrings& strings, const String& text, const String& equals,
                      const String& quote, const String& comma) {
    const auto wanted = assignmentsIn(trim(text), equals, quote, comma);
    const Repeats twice = repeats(wanted);
    String given = text;
    CollectionRef got;
    try {
        got = strings.ParseString(given, equals, quote, comma);
    } catch (const AutomationError& error) {
        promise(error.number() == 457 && twice != Repeats::None, "only a name that repeats fails");
        return;
    }
    promise(twice != Repeats::Surely, "a name that repeats is refused");
    promiseEqual(given, trim(text), "blanks at the ends are taken off the caller's text");
    promiseEqual(std::size_t(got->count()), wanted.size(), "as many assignments");
    for (Long i = 1; i <= got->count(); ++i) {
        const Assignment& one = wanted[static_cast<std::size_t>(i) - 1];
        promiseEqual(got->entry(i).key, one.name, "the name of an assignment");
        promiseEqual(got->item(i).get<String>(), one.value, "the value of an assignment");
    }
}

void checkFields(GQuorStrings& strings, const String& text, const String& header,
                 const String& trailer) {
    const CollectionRef got = strings.ReadAllVarFields(text, header, trailer);
    const String lower = base::toLower(text);
    Long count = 0;
    for (std::size_t at = trailer.size();;) {
        const std::size_t begin = firstIn(lower, base::toLower(header), at);
        if (begin == kNowhere) break;
        const std::size_t name = begin + header.size();
        const std::size_t end = firstIn(lower, base::toLower(trailer), name);
        if (end == kNowhere) break;
        at = end + trailer.size();
        if (end == name) continue;
        promise(got->count() > count, "no field is left out");
        promiseEqual(got->item(++count).get<String>(), text.substr(name, end - name), "a field");
    }
    promiseEqual(got->count(), count, "as many fields");
}

void checkReplacing(GQuorStrings& strings, const String& text, const String& old,
                    const String& by) {
    String wanted;
    Long count = 0;
    std::size_t at = 0;
    for (std::size_t hit; (hit = firstIn(text, old, at)) != kNowhere;
         at = hit + old.size(), ++count)
        wanted.append(text, at, hit - at).append(by);
    wanted.append(text, at);
    promiseEqual(strings.StringReplace(text, old, by), wanted, "everything is replaced once");
    promiseEqual(strings.GetCountSearchPatternInString(text, old), count, "as many occurrences");
}

}  // namespace

void run(std::string_view input) {
    Fields fields(input);
    const String text = fields.text();
    const String first = fields.text();
    const String second = fields.text();
    const String third = fields.text();
    MemoryPorts ports;
    GQuorStrings strings(ports);
    checkAssignments(strings, text, first, second, third);
    checkFields(strings, text, first, second);
    checkReplacing(strings, text, first, second);

    promiseEqual(
        strings.getFieldNameWithoutLineNumber(text, {}) + strings.getFieldNameLineNumber(text),
        text, "a field is its name and its line number");
    String command;
    String argument = u"untouched";
    strings.SplitDOSCMDParam(text, command, argument);
    promiseEqual(text.find(u'=') == kNowhere ? command : command + u'=' + argument, text,
                 "a parameter is its command and its argument");
}

}  // namespace quorkit::fuzz
