#include "base/unicode.h"

#include <algorithm>

#include "base/ascii_run.h"

namespace quorkit::base {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// The character at the start of UTF-8, and the number of its bytes.
struct Decoded {
    char32_t character = 0;
    std::size_t length = 0;  ///< 0 when there is no character
};

/// `bytes` is not empty.
Decoded decodeUtf8(std::string_view bytes) {
    const auto first = static_cast<unsigned char>(bytes[0]);
    if (first < 0x80) return {first, 1};
    const std::size_t length = first < 0xC0 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (length == 0 || first > 0xF4 || bytes.size() < length) return {};
    char32_t character = first & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(bytes[i]);
        if ((next & 0xC0) != 0x80) return {};
        character = character << 6 | (next & 0x3Fu);
    }
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (character < smallest[length] || character > 0x10FFFF) return {};
    return {character, length};
}

/// An upper limit for the size of the text in UTF-8.
std::size_t utf8Size(StringView text) {
    std::size_t size = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        size += 1u + (text[i] >= 0x80) + (text[i] >= 0x800);
        // A pair takes four bytes, but three were counted for each half.
        if (isLowSurrogate(text[i]) && i > 0 && isHighSurrogate(text[i - 1])) size -= 2;
    }
    return size;
}

char* encodeUtf8(char32_t character, char* target) {
    const auto put = [&](char32_t byte) { *target++ = static_cast<char>(byte); };
    const auto putTail = [&](int shift) { put(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0 | character >> 6);
        putTail(0);
    } else if (character < 0x10000) {
        put(0xE0 | character >> 12);
        putTail(6);
        putTail(0);
    } else {
        put(0xF0 | character >> 18);
        putTail(12);
        putTail(6);
        putTail(0);
    }
    return target;
}

/// The code point at `position`, which then moves behind it. A surrogate without its partner is
/// returned as it is. `position` must be inside the text.
char32_t nextCodePoint(StringView text, std::size_t& position) {
    const char32_t first = text[position++];
    if (!isHighSurrogate(first) || position == text.size() || !isLowSurrogate(text[position]))
        return first;
    return 0x10000 + ((first - 0xD800) << 10) + (text[position++] - 0xDC00u);
}

}  // namespace

std::size_t findLoneSurrogate(StringView text, std::size_t start) {
    while (start < text.size()) {
        const std::size_t at = start;
        if (isSurrogate(nextCodePoint(text, start))) return at;
    }
    return StringView::npos;
}

std::string toUtf8(StringView text, Malformed malformed) {
    std::string bytes(utf8Size(text), '\0');
    char* target = bytes.data();
    while (!text.empty()) {
        copyAscii(text, target);
        if (text.empty()) break;
        std::size_t length = 0;
        const char32_t next = nextCodePoint(text, length);
        text.remove_prefix(length);
        if (malformed == Malformed::AsBytes && standsForByte(next))
            *target++ = static_cast<char>(next - kByteSurrogates);
        else
            target = encodeUtf8(
                isSurrogate(next) && malformed != Malformed::Keep ? kReplacement : next, target);
    }
    bytes.resize(static_cast<std::size_t>(target - bytes.data()));
    return bytes;
}

String fromUtf8(std::string_view bytes, Malformed malformed) {
    String text(bytes.size(), u'\0');  // a byte makes at most one unit
    char16_t* target = text.data();
    while (!bytes.empty()) {
        copyAscii(bytes, target);
        if (bytes.empty()) break;
        const auto [character, length] = decodeUtf8(bytes);
        if (length == 0 || (malformed != Malformed::Keep && isSurrogate(character))) {
            const auto byte = static_cast<unsigned char>(bytes[0]);
            *target++ = static_cast<char16_t>(
                malformed == Malformed::AsBytes ? kByteSurrogates + byte : kReplacement);
            bytes.remove_prefix(1);
            continue;
        }
        if (character < 0x10000) {
            *target++ = static_cast<char16_t>(character);
        } else {
            *target++ = static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
            *target++ = static_cast<char16_t>(0xDC00 + (character & 0x3FF));
        }
        bytes.remove_prefix(length);
    }
    text.resize(static_cast<std::size_t>(target - text.data()));
    return text;
}

bool isUtf8(std::string_view bytes) {
    while (true) {
        bytes.remove_prefix(asciiRun(bytes));
        if (bytes.empty()) return true;
        const Decoded next = decodeUtf8(bytes);
        if (next.length == 0 || isSurrogate(next.character)) return false;
        bytes.remove_prefix(next.length);
    }
}

std::string toUtf16(StringView text) {
    std::string bytes(2 * text.size(), '\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        bytes[2 * i] = static_cast<char>(text[i] & 0xFF);
        bytes[2 * i + 1] = static_cast<char>(text[i] >> 8);
    }
    return bytes;
}

String fromUtf16(std::string_view bytes) {
    String text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i)
        text[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                        static_cast<unsigned char>(bytes[2 * i + 1]) << 8);
    return text;
}

}  // namespace quorkit::base
