// What people write around a number: its sign, and what money it is.
#pragma once

#include <quorkit/values.h>

namespace quorkit::convert {

struct Amount {
    /// A minus in front of the number, or of the currency in front of it; or behind, or parentheses
    /// around, where there is nothing else on that side.
    bool negative = false;
    /// The currency is one of those whose people write 1,000.
    bool commaGroups = false;
};

/// Of a number between two parts of a text.
Amount amountBetween(StringView front, StringView behind);

}  // namespace quorkit::convert
