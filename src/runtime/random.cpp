// SplitMix64 (Steele, Lea, Flood: Fast Splittable Pseudorandom Number Generators, 2014). Its state
// is a counter, so drawing a number is one atomic addition.
#include "runtime/random.h"

#include <atomic>

namespace quorkit::runtime {
namespace {

constexpr std::uint64_t kStep = 0x9E37'79B9'7F4A'7C15;

std::atomic<std::uint64_t> state{0};

}  // namespace

void Randomize(std::uint64_t seed) {
    state = seed;
}

float Rnd() {
    std::uint64_t bits = state.fetch_add(kStep) + kStep;
    bits = (bits ^ bits >> 30) * 0xBF58'476D'1CE4'E5B9;
    bits = (bits ^ bits >> 27) * 0x94D0'49BB'1331'11EB;
    bits ^= bits >> 31;
    return static_cast<float>(bits >> 40) * 0x1p-24f;
}

}  // namespace quorkit::runtime
