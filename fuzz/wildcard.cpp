// A pattern and names. Finds: answers that differ from the plain definition, which tries every way
// through the pattern.
#include "file/wildcard.h"

#include <algorithm>

#include "base/letter_case.h"
#include "support/target.h"

namespace quorkit::fuzz {
namespace {

struct Name {
    StringView text;
    std::size_t lastStop;
};

bool matches(StringView pattern, const Name& name, std::size_t at) {
    const bool end = at == name.text.size();
    if (pattern.empty()) return end;
    const char16_t unit = end ? u'\0' : name.text[at];
    const StringView rest = pattern.substr(1);
    const bool wildFollows = rest.empty() || rest[0] == u'*' || rest[0] == u'?';
    switch (pattern[0]) {
        case u'*':
            if (matches(rest, name, at)) return true;
            if (end || (rest.starts_with(u'.') && at == name.lastStop)) return false;
            return matches(pattern, name, at + 1);
        case u'?':
            if ((end || unit == u'.') && matches(rest, name, at)) return true;
            return !end && unit != u'.' && matches(rest, name, at + 1);
        case u'.':
            if (wildFollows && end) return matches(rest, name, at);
            break;
        default:
            break;
    }
    return !end && base::toUpper(pattern[0]) == base::toUpper(unit) && matches(rest, name, at + 1);
}

/// The pattern as Windows cuts it before it matches. Only "*." still differs from "*".
String cut(const String& asked) {
    const String kept = asked.substr(0, asked.find_last_not_of(u". ") + 1);
    if (kept == u"*.*") return u"*";
    return kept.ends_with(u'*') && asked.ends_with(u'.') ? kept + u'.' : kept;
}

}  // namespace

void run(std::string_view input) {
    // The number of ways grows with the length to the power of the number of stars.
    constexpr std::size_t longest = 24;
    constexpr std::ptrdiff_t mostStars = 5;
    Fields fields(input);
    const String asked = fields.text().substr(0, longest);
    if (std::ranges::count(asked, u'*') > mostStars) return;
    const file::Wildcard wildcard(asked);
    const String pattern = cut(asked);
    do {
        const String name = fields.text().substr(0, longest);
        const bool wanted = matches(pattern, {name, name.rfind(u'.')}, 0);
        if (wildcard.matches(name) != wanted)
            breakPromise(wanted ? "the name matches" : "the name does not match", shown(name),
                         shown(asked));
    } while (!fields.done());
}

}  // namespace quorkit::fuzz
