// The data of a DWORD: 32 bits, the lowest byte first.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorkit::base {

inline constexpr std::size_t kDWordSize = 4;

inline std::string dwordData(std::uint32_t number) {
    std::string data;
    for (unsigned shift = 0; shift < 32; shift += 8) data += static_cast<char>(number >> shift);
    return data;
}

/// Missing bytes are 0, and those behind the fourth are ignored.
inline std::uint32_t dwordIn(std::string_view data) {
    std::uint32_t number = 0;
    for (std::size_t i = std::min(data.size(), kDWordSize); i-- > 0;)
        number = number << 8 | static_cast<unsigned char>(data[i]);
    return number;
}

}  // namespace quorkit::base
