#include "base/letter_case.h"

#include <algorithm>
#include <span>

#include "base/hash.h"

namespace quorkit::base {
namespace {

/// The characters first, first + stride ... last, each with its other case `delta` away.
struct Run {
    char16_t first;
    char16_t last;
    int stride;
    int delta;
};

#include "base/letter_case_table.inc"

char16_t mapped(std::span<const Run> runs, char16_t unit) {
    const auto run = std::ranges::lower_bound(runs, unit, {}, &Run::last);
    if (run == runs.end() || unit < run->first || (unit - run->first) % run->stride != 0)
        return unit;
    return static_cast<char16_t>(unit + run->delta);
}

String mapped(StringView text, char16_t (&map)(char16_t)) {
    String result(text.size(), u'\0');
    std::ranges::transform(text, result.begin(), map);
    return result;
}

template <char16_t map(char16_t)>
bool same(StringView a, StringView b) {
    return std::ranges::equal(a, b,
                              [](char16_t x, char16_t y) { return x == y || map(x) == map(y); });
}

template <char16_t map(char16_t)>
std::size_t hashAs(StringView text) {
    return static_cast<std::size_t>(hashOf(text, [](char16_t unit) { return map(unit); }));
}

}  // namespace

char16_t toLower(char16_t unit) {
    if (unit < 0x80) return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    return mapped(kToLower, unit);
}

char16_t toUpper(char16_t unit) {
    if (unit < 0x80) return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    return mapped(kToUpper, unit);
}

String toLower(StringView text) {
    return mapped(text, toLower);
}

String toUpper(StringView text) {
    return mapped(text, toUpper);
}

char16_t folded(char16_t unit) {
    const char16_t lower = toLower(unit);
    return lower < 0x80 && unit < 0x80 ? lower : toUpper(lower) == unit ? lower : unit;
}

String folded(StringView text) {
    return mapped(text, folded);
}

bool sameText(StringView a, StringView b) {
    return same<folded>(a, b);
}

bool sameKey(StringView a, StringView b) {
    return same<toLower>(a, b);
}

std::size_t TextHash::operator()(StringView text) const {
    return hashAs<folded>(text);
}

std::size_t KeyHash::operator()(StringView key) const {
    return hashAs<toLower>(key);
}

}  // namespace quorkit::base
