// The text around a number: its sign and its currency.
#pragma once

#include <quorkit/values.h>

namespace quorkit::convert {

struct Amount {
    /// There is a minus in front of the number or of its currency, or, when nothing else is on that
    /// side, a minus behind or parentheses around.
    bool negative = false;
    /// The currency is one of those in which people write 1,000.
    bool commaGroups = false;
};

/// The amount whose number stands between two parts of a text.
Amount amountBetween(StringView front, StringView behind);

}  // namespace quorkit::convert
