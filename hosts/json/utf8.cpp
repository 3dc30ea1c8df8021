#include "json/utf8.h"

namespace quorkit::json {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kByteBase = 0xDC00;

void appendUtf16(String& text, char32_t codePoint) {
    if (codePoint < 0x10000) {
        text += static_cast<char16_t>(codePoint);
    } else {
        text += static_cast<char16_t>(0xD7C0 + (codePoint >> 10));
        text += static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF));
    }
}

/// The well-formed code point at the start of `bytes` and its length; length 0 when there is none.
struct Decoded {
    char32_t codePoint = 0;
    std::size_t length = 0;
};
Decoded decode(std::string_view bytes) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned lead = byte(0);
    if (lead < 0x80) return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length) return {};
    char32_t codePoint = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return {};
        codePoint = codePoint << 6 | (byte(i) & 0x3Fu);
    }
    constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    if (codePoint < kLeast[length] || codePoint > 0x10FFFF || isSurrogate(codePoint)) return {};
    return {codePoint, length};
}

}  // namespace

char32_t nextCodePoint(StringView text, std::size_t& position) {
    const char32_t first = text[position++];
    if (first < 0xD800 || first > 0xDBFF || position == text.size()) return first;
    const char32_t second = text[position];
    if (second < 0xDC00 || second > 0xDFFF) return first;
    ++position;
    return 0x10000 + ((first & 0x3FF) << 10) + (second & 0x3FF);
}

void appendUtf8(std::string& bytes, char32_t codePoint) {
    const auto continuation = [&](int shift) {
        bytes += static_cast<char>(0x80 | (codePoint >> shift & 0x3F));
    };
    if (codePoint < 0x80) {
        bytes += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        bytes += static_cast<char>(0xC0 | codePoint >> 6);
        continuation(0);
    } else if (codePoint < 0x10000) {
        bytes += static_cast<char>(0xE0 | codePoint >> 12);
        continuation(6);
        continuation(0);
    } else {
        bytes += static_cast<char>(0xF0 | codePoint >> 18);
        continuation(12);
        continuation(6);
        continuation(0);
    }
}

std::string toUtf8(StringView text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const char32_t codePoint = nextCodePoint(text, position);
        if (codePoint >= kByteBase + 0x80 && codePoint <= kByteBase + 0xFF)
            bytes += static_cast<char>(codePoint - kByteBase);
        else
            appendUtf8(bytes, isSurrogate(codePoint) ? kReplacement : codePoint);
    }
    return bytes;
}

String fromUtf8(std::string_view bytes) {
    String text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const Decoded next = decode(bytes);
        const char32_t byte = kByteBase + static_cast<unsigned char>(bytes.front());
        appendUtf16(text, next.length == 0 ? byte : next.codePoint);
        bytes.remove_prefix(next.length == 0 ? 1 : next.length);
    }
    return text;
}

}  // namespace quorkit::json
