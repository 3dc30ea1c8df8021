// The process-wide generator of pseudo-random numbers.
#pragma once

#include <cstdint>

namespace quorkit::runtime {

/// Starts the sequence that belongs to `seed`, for all callers in this process.
void Randomize(std::uint64_t seed);

/// The next value of the sequence: 0 <= value < 1 in steps of 2^-24. Each value is drawn by one
/// caller only, also when several threads draw at once.
float Rnd();

}  // namespace quorkit::runtime
