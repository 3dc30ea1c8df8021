// Lines that a dying process has left without their end, for all rooms. A line break has two
// characters of one or two bytes each; the second one, the feed, is what ends a line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorkit::lines {

inline std::string_view feedOf(std::string_view lineBreak) {
    return lineBreak.substr(lineBreak.size() / 2);
}

/// Whether a line ends `place` bytes behind the start of a file; `before` is what stands there.
inline bool endAt(std::uint64_t place, std::string_view before, std::string_view feed) {
    return place == 0 || (place % feed.size() == 0 && before.ends_with(feed));
}

/// What parts a line from the torn one before it. Half a character is filled up, so that those
/// behind it are read as they were written.
inline std::string parting(std::uint64_t place, std::string_view lineBreak) {
    return std::string(place % feedOf(lineBreak).size(), '\0').append(lineBreak);
}

}  // namespace quorkit::lines
