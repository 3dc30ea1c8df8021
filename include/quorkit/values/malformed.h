// Conversions between UTF-16 and UTF-8 that have no exact result.
#pragma once

namespace quorkit {

/// How to convert what the other encoding has no place for: a surrogate without its partner in a
/// text; bytes that are not valid UTF-8, over-long forms included.
enum class Malformed {
    Replace,  ///< a surrogate, and each such byte, becomes U+FFFD
    Keep,     ///< a surrogate becomes three bytes, as other units do: a text survives a round
              ///< trip. Each other invalid byte becomes U+FFFD
    AsBytes,  ///< a byte becomes the surrogate U+DC00 + byte: all bytes survive a round
              ///< trip. Each other surrogate becomes U+FFFD
};

}  // namespace quorkit
