// Letter case and comparison without regard to it, one code unit at a time, the same everywhere.
#pragma once

#include <quorkit/values.h>

#include <cstddef>

namespace quorkit::base {

/// The simple case mappings of Unicode; characters beyond U+FFFF stay as they are.
char16_t toLower(char16_t unit);
char16_t toUpper(char16_t unit);
String toLower(StringView text);
String toUpper(StringView text);

/// What is the same for texts that differ in letter case alone: small letters, but for a character
/// that is not the capital of its small one, such as the Kelvin sign. Windows tells those apart
/// too.
char16_t folded(char16_t unit);
String folded(StringView text);

/// `a` and `b` are the same text but for letter case.
bool sameText(StringView a, StringView b);
/// `a` and `b` are the same key of a collection or name in an INI file: equal in small letters.
bool sameKey(StringView a, StringView b);

/// For hash tables whose keys match without regard to letter case, as texts or as keys.
struct TextHash {
    using is_transparent = void;
    std::size_t operator()(StringView text) const;
};
struct TextEqual {
    using is_transparent = void;
    bool operator()(StringView a, StringView b) const { return sameText(a, b); }
};
struct KeyHash {
    using is_transparent = void;
    std::size_t operator()(StringView key) const;
};
struct KeyEqual {
    using is_transparent = void;
    bool operator()(StringView a, StringView b) const { return sameKey(a, b); }
};

}  // namespace quorkit::base
