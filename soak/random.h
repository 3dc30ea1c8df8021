// Numbers that depend only on a seed, so that a writer and its controller get the same ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace quorkit::soak {

class Random {
   public:
    /// The sequence is the same for the same seeds in the same order.
    Random(std::initializer_list<std::uint64_t> seeds) {
        for (const std::uint64_t seed : seeds) state_ = mixed(state_ ^ mixed(seed));
    }

    std::uint64_t next() { return mixed(state_ += 0x9E3779B97F4A7C15u); }
    /// 0 to `count` - 1.
    std::uint32_t below(std::uint32_t count) {
        return static_cast<std::uint32_t>((next() >> 32) * count >> 32);
    }
    bool oneIn(std::uint32_t count) { return below(count) == 0; }

   private:
    /// The output function of SplitMix64.
    static std::uint64_t mixed(std::uint64_t x) {
        x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9u;
        x = (x ^ (x >> 27)) * 0x94D049BB133111EBu;
        return x ^ (x >> 31);
    }

    std::uint64_t state_ = 0x9E3779B97F4A7C15u;
};

}  // namespace quorkit::soak
