// The failure of a valid command.
#pragma once

#include <quorkit/dispatch.h>

#include <stdexcept>
#include <string>

namespace quorkit::cli {

/// The place and the failure, in words that follow "quorkit: ".
struct Failure : std::runtime_error {
    using runtime_error::runtime_error;
    explicit Failure(const CallError& error)
        : runtime_error("error " + std::to_string(error.number) + ": " + error.text) {}
};

}  // namespace quorkit::cli
