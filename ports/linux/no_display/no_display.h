// The results of a build without display.
#pragma once

#include <quorkit/ports/ports.h>

namespace quorkit::native {

/// The empty value of a type: false, 0, an empty list.
template <class Result>
Result nothing() {
    ports::giveReason("this build knows no display: it was made without libxcb");
    return {};
}

}  // namespace quorkit::native
