// Published names are ASCII and match without regard to case.
#pragma once

#include <quorkit/values.h>

#include <string_view>

namespace quorkit::base {

inline bool sameName(StringView wanted, std::string_view published) {
    const auto lower = [](unsigned unit) { return unit >= 'A' && unit <= 'Z' ? unit + 32 : unit; };
    if (wanted.size() != published.size()) return false;
    for (std::size_t i = 0; i < wanted.size(); ++i)
        if (lower(wanted[i]) != lower(static_cast<unsigned char>(published[i]))) return false;
    return true;
}

}  // namespace quorkit::base
