// The runtime's Trim: it takes off spaces, no other white space.
#pragma once

#include <quorkit/values.h>

namespace quorkit::runtime {

inline StringView Trim(StringView text) {
    const auto first = text.find_first_not_of(u' ');
    if (first == StringView::npos) return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

}  // namespace quorkit::runtime
