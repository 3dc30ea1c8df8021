// What has no place in UTF-16 or UTF-8.
#pragma once

namespace quorkit {

/// What becomes of a surrogate without its partner in a text, and of bytes that are no UTF-8, such
/// as over-long forms. Neither has a place on the other side.
enum class Malformed {
    Replace,  ///< U+FFFD for a surrogate, and for each of the bytes
    Keep,  ///< a surrogate is three bytes, as any other unit, and comes back: every text survives
           ///< a round trip. U+FFFD for each other byte
    AsBytes,  ///< a byte is the surrogate U+DC00 + byte, and comes back: all bytes survive a round
              ///< trip. U+FFFD for each other surrogate
};

}  // namespace quorkit
