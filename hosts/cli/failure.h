// A command that was understood and failed.
#pragma once

#include <quorkit/dispatch.h>

#include <stdexcept>
#include <string>

namespace quorkit::cli {

/// Where and what, in words that follow "quorkit: ".
struct Failure : std::runtime_error {
    using runtime_error::runtime_error;
    explicit Failure(const CallError& error)
        : runtime_error("error " + std::to_string(error.number) + ": " + error.text) {}
};

}  // namespace quorkit::cli
