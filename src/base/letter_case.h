// Letter case, and comparison without regard to it; one code unit at a time, the same on every
// system.
#pragma once

#include <quorkit/values.h>

#include <cstddef>

namespace quorkit::base {

/// The simple case mappings of Unicode; characters beyond U+FFFF stay as they are.
char16_t toLower(char16_t unit);
char16_t toUpper(char16_t unit);
String toLower(StringView text);
String toUpper(StringView text);

/// A form that is equal for texts that differ only in letter case. It is the small letter, except
/// for a character that is not the capital of its own small letter, such as the Kelvin sign;
/// Windows treats those as different too.
char16_t folded(char16_t unit);
String folded(StringView text);

/// Whether `a` and `b` differ at most in letter case.
bool sameText(StringView a, StringView b);
/// Whether `a` and `b` are the same key of a collection, or the same name in an INI file: they are
/// equal in small letters.
bool sameKey(StringView a, StringView b);

/// For hash tables that match their keys without regard to letter case, as texts or as keys.
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
