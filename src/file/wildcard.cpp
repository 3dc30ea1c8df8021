#include "file/wildcard.h"

#include <algorithm>
#include <string>

#include "base/letter_case.h"

namespace quorkit::file {
namespace {

constexpr StringView kWild = u"*?";
constexpr std::size_t kNowhere = StringView::npos;

bool isLetter(char16_t folded, char16_t unit) {
    return folded == unit || folded == base::toUpper(unit);
}

/// The pattern as Windows cuts it first: without full stops and blanks at the end. Of those only a
/// last full stop behind "*" leaves a trace, and even that not in "*.*.".
String cut(StringView pattern) {
    const StringView kept = pattern.substr(0, pattern.find_last_not_of(u". ") + 1);
    if (kept == u"*.*") return u"*";
    return String(kept) + (kept.ends_with(u'*') && pattern.ends_with(u'.') ? u"." : u"");
}

}  // namespace

bool isPattern(StringView text) {
    return text.find_first_of(kWild) != StringView::npos;
}

Wildcard::Wildcard(StringView asked) {
    const String pattern = cut(asked);
    std::size_t wild = 0;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const bool last = i + 1 == pattern.size();
        const char16_t next = last ? u'\0' : pattern[i + 1];
        Element element;
        if (pattern[i] == u'*')
            element.step = next == u'.' ? Step::RunInFront : Step::Run;
        else if (pattern[i] == u'?')
            element.step = Step::OneOrNone;
        else if (pattern[i] == u'.' && (last || next == u'*' || next == u'?'))
            element.step = Step::StopOrEnd;
        else
            element.letter = base::toUpper(pattern[i]);
        if (element.step != Step::Letter) {
            only_ = i;
            ++wild;
        }
        elements_.push_back(element);
    }
    if (wild == 0) only_ = elements_.size();
    if (wild > 1) only_ = kNowhere;
}

/// Whether `text` equals the letters from `element` on, as many as it has.
bool Wildcard::matchesFrom(std::size_t element, StringView text) const {
    return std::ranges::equal(
        text, std::span(elements_).subspan(element, text.size()),
        [](char16_t unit, const Element& one) { return isLetter(one.letter, unit); });
}

bool Wildcard::matches(StringView name) const {
    if (only_ == elements_.size()) return name.size() == elements_.size() && matchesFrom(0, name);
    // A run with a full stop behind it cannot take the last full stop.
    if (only_ == kNowhere ||
        (elements_[only_].step != Step::Run && elements_[only_].step != Step::RunInFront))
        return matchesAnyway(name);
    const std::size_t behind = elements_.size() - only_ - 1;
    return name.size() >= only_ + behind && matchesFrom(0, name.substr(0, only_)) &&
           matchesFrom(only_ + 1, name.substr(name.size() - behind));
}

struct Wildcard::Spot {
    char16_t unit;
    bool stop;
    bool lastStop;
    bool end;
};

bool Wildcard::standsForNothing(const Element& element, const Spot& spot) {
    switch (element.step) {
        case Step::Letter:
            return false;
        case Step::Run:
        case Step::RunInFront:
            return true;
        case Step::OneOrNone:
            return spot.stop || spot.end;
        case Step::StopOrEnd:
            return spot.end;
    }
    return false;
}

/// Whether the element accepts this character as its last.
bool Wildcard::takes(const Element& element, const Spot& spot) {
    return (element.step == Step::Letter && isLetter(element.letter, spot.unit)) ||
           (element.step == Step::OneOrNone && !spot.stop) ||
           (element.step == Step::StopOrEnd && spot.stop);
}

/// Whether the element accepts this character and may accept more.
bool Wildcard::takesMore(const Element& element, const Spot& spot) {
    return element.step == Step::Run || (element.step == Step::RunInFront && !spot.lastStop);
}

/// Follows all ways through the pattern at once: `reached` marks each element that may come next.
bool Wildcard::matchesAnyway(StringView name) const {
    const std::size_t lastStop = name.rfind(u'.');
    std::string reached(elements_.size() + 1, '\0');
    std::string next = reached;
    reached[0] = 1;
    for (std::size_t at = 0; at <= name.size(); ++at) {
        const bool end = at == name.size();
        const char16_t unit = end ? u'\0' : name[at];
        const Spot spot{unit, !end && unit == u'.', at == lastStop, end};
        std::ranges::fill(next, '\0');
        for (std::size_t i = 0; i < elements_.size(); ++i) {
            if (reached[i] == 0) continue;
            if (standsForNothing(elements_[i], spot)) reached[i + 1] = 1;
            if (takesMore(elements_[i], spot)) next[i] = 1;
            if (takes(elements_[i], spot)) next[i + 1] = 1;
        }
        if (!end) reached.swap(next);
    }
    return reached.back() != 0;
}

}  // namespace quorkit::file
