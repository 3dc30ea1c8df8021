// Published names are ASCII and match without regard to case.
#pragma once

#include <quorkit/values.h>

#include <string_view>

namespace quorkit::base {

inline unsigned asciiLower(unsigned unit) {
    return unit >= 'A' && unit <= 'Z' ? unit + 32 : unit;
}

inline bool sameName(StringView wanted, std::string_view published) {
    if (wanted.size() != published.size()) return false;
    for (std::size_t i = 0; i < wanted.size(); ++i)
        if (asciiLower(wanted[i]) != asciiLower(static_cast<unsigned char>(published[i])))
            return false;
    return true;
}

/// The same for a name in a table: most are seen to be others by their first characters, so that
/// their length need not be counted.
inline bool sameName(StringView wanted, const char* published) {
    for (const char16_t unit : wanted) {
        const auto other = static_cast<unsigned char>(*published++);
        if (other == 0 || asciiLower(unit) != asciiLower(other)) return false;
    }
    return *published == 0;
}

}  // namespace quorkit::base
