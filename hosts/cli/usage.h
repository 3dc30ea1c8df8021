// A command line that cannot be understood.
#pragma once

#include <stdexcept>

namespace quorkit::cli {

/// The mistake, in words that follow "quorkit: ".
struct UsageError : std::runtime_error {
    using runtime_error::runtime_error;
};

}  // namespace quorkit::cli
