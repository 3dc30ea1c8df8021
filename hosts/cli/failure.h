// A command that was understood and failed.
#pragma once

#include <stdexcept>

namespace quorkit::cli {

/// Where and what, in words that follow "quorkit: ".
struct Failure : std::runtime_error {
    using runtime_error::runtime_error;
};

}  // namespace quorkit::cli
