// What a build that knows no display answers.
#pragma once

#include <quorkit/ports/ports.h>

namespace quorkit::native {

/// Nothing of that type: false, 0, an empty list.
template <class Result>
Result nothing() {
    ports::giveReason("this build knows no display: it was made without libxcb");
    return {};
}

}  // namespace quorkit::native
