// Limits of times, in nanoseconds.
#pragma once

#include <cstdint>

namespace quorkit::soak {

inline constexpr std::uint64_t kMillisecond = 1'000'000;
/// A call that takes longer counts as endless; the documents promise a few seconds.
inline constexpr std::uint64_t kLongestWait = 20'000 * kMillisecond;
/// A call that takes longer is waiting for another process.
inline constexpr std::uint64_t kNoticeable = 500 * kMillisecond;

}  // namespace quorkit::soak
