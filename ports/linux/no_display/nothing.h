// What a build that knows no display answers.
#pragma once

#include "native/reason.h"

namespace quorkit {

/// Nothing of that type: false, 0, an empty list.
template <class Result>
Result nothing() {
    giveReason("this build knows no display: it was made without libxcb");
    return {};
}

}  // namespace quorkit
