// How long is too long, in nanoseconds.
#pragma once

#include <cstdint>

namespace quorkit::soak {

inline constexpr std::uint64_t kMillisecond = 1'000'000;
/// A call that takes longer waits for ever: what the documents promise is a few seconds.
inline constexpr std::uint64_t kLongestWait = 20'000 * kMillisecond;
/// A call that takes longer is waiting for somebody.
inline constexpr std::uint64_t kNoticeable = 500 * kMillisecond;

}  // namespace quorkit::soak
