// Lines that a dying process has left without their end; shared by all implementations. A line
// break has two characters of one or two bytes each. The second one, the feed, ends a line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorkit::lines {

inline std::string_view feedOf(std::string_view lineBreak) {
    return lineBreak.substr(lineBreak.size() / 2);
}

/// Whether a line ends `place` bytes behind the start of a file; `before` is the text in front of
/// that.
inline bool endAt(std::uint64_t place, std::string_view before, std::string_view feed) {
    return place == 0 || (place % feed.size() == 0 && before.ends_with(feed));
}

/// The bytes to write between a torn line and the next one. They complete a half character, so that
/// the text behind it can be read.
inline std::string parting(std::uint64_t place, std::string_view lineBreak) {
    const auto half = static_cast<std::size_t>(place % feedOf(lineBreak).size());
    return std::string(half, '\0').append(lineBreak);
}

}  // namespace quorkit::lines
