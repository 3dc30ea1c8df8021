#include "json/base64.h"

#include <cstddef>

namespace quorkit::json {
namespace {

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string toBase64(std::span<const Byte> bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        unsigned group = 0;
        for (std::size_t k = i; k < i + 3; ++k)
            group = group << 8 | (k < bytes.size() ? bytes[k] : 0u);
        for (std::size_t k = 0; k < 4; ++k)
            text += i + k <= bytes.size() ? kDigits[group >> (18 - 6 * k) & 63] : '=';
    }
    return text;
}

std::optional<std::vector<Byte>> fromBase64(std::string_view text) {
    if (text.size() % 4 != 0) return {};
    if (text.ends_with("==")) {
        text.remove_suffix(2);
    } else if (text.ends_with('=')) {
        text.remove_suffix(1);
    }
    std::vector<Byte> bytes;
    bytes.reserve(text.size() / 4 * 3 + 2);
    unsigned group = 0;
    unsigned bits = 0;
    for (const char digit : text) {
        const std::size_t value = kDigits.find(digit);
        if (value == std::string_view::npos) return {};
        group = (group << 6 | static_cast<unsigned>(value)) & 0xFFFF;
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            bytes.push_back(static_cast<Byte>(group >> bits));
        }
    }
    return bytes;
}

}  // namespace quorkit::json
