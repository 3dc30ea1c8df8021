// The process-wide generator of pseudo-random numbers.
#pragma once

#include <cstdint>

namespace quorkit::runtime {

/// Restarts the sequence from `seed`, for all callers in this process.
void Randomize(std::uint64_t seed);

/// The next value of the sequence: 0 <= value < 1 in steps of 2^-24. Each value goes to one caller
/// only, even when several threads draw at once.
float Rnd();

}  // namespace quorkit::runtime
