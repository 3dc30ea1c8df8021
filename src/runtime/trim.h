// Removes white space at the ends of a text.
#pragma once

#include <quorkit/values.h>

namespace quorkit::runtime {

/// White space of Unicode.
inline constexpr StringView kWhiteSpace =
    u"\t\n\v\f\r "
    u"\u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A"
    u"\u2028\u2029\u202F\u205F\u3000";

/// `text` without the characters of `blanks` at its ends.
inline StringView without(StringView blanks, StringView text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == StringView::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// The runtime's own Trim, which removes spaces but no other white space.
inline StringView Trim(StringView text) {
    return without(u" ", text);
}

}  // namespace quorkit::runtime
