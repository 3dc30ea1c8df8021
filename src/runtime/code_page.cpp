#include "runtime/code_page.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace quorkit::runtime {
namespace {

/// The characters of the bytes 0x80 to 0x9F.
/// Source: CP1252.TXT among the mapping tables of the Unicode Consortium.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

struct Code {
    char16_t unit;
    Byte byte;
};

constexpr auto kByUnit = [] {
    std::array<Code, kUpperControls.size()> codes{};
    for (std::size_t i = 0; i < codes.size(); ++i)
        codes[i] = {kUpperControls[i], static_cast<Byte>(0x80 + i)};
    std::ranges::sort(codes, {}, &Code::unit);
    return codes;
}();

/// The number of characters at the start of `text` that are ASCII, possibly a few less. Eight bytes
/// at a time, because whole files pass through here.
template <class Unit>
std::size_t asciiRun(std::basic_string_view<Unit> text) {
    constexpr std::uint64_t notAscii =
        sizeof(Unit) == 1 ? 0x8080'8080'8080'8080 : 0xFF80'FF80'FF80'FF80;
    constexpr std::size_t step = sizeof(std::uint64_t) / sizeof(Unit);
    std::size_t length = 0;
    for (; length + step <= text.size(); length += step) {
        std::uint64_t block;
        std::memcpy(&block, text.data() + length, sizeof block);
        if ((block & notAscii) != 0) break;
    }
    return length;
}

/// Copies the ASCII characters at the start of `text` to `target`, which moves behind them, and
/// takes them off `text`.
template <class From, class To>
void copyAscii(std::basic_string_view<From>& text, To*& target) {
    const std::size_t length = asciiRun(text);
    target = std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length),
                            target, [](From unit) { return static_cast<To>(unit); });
    text.remove_prefix(length);
}

bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

/// The character at the start of a text and the units it takes.
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

/// `text` is not empty.
Decoded decodeUtf16(StringView text) {
    if (!isHighSurrogate(text[0]) || text.size() < 2 || !isLowSurrogate(text[1]))
        return {text[0], 1};
    return {0x10000 + ((text[0] - 0xD800u) << 10) + (text[1] - 0xDC00u), 2};
}

std::size_t utf8Size(StringView text) {
    std::size_t size = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        size += 1u + (text[i] >= 0x80) + (text[i] >= 0x800);
        // Three bytes were counted for each half of a pair, which takes four in all.
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

}  // namespace

Byte toAnsi(char16_t unit) {
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return static_cast<Byte>(unit);
    const auto found = std::ranges::lower_bound(kByUnit, unit, {}, &Code::unit);
    return found != kByUnit.end() && found->unit == unit ? found->byte : Byte{'?'};
}

char16_t fromAnsi(Byte byte) {
    return byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80u] : char16_t{byte};
}

std::string toAnsi(StringView text) {
    std::string bytes(text.size(), '\0');
    char* target = bytes.data();
    copyAscii(text, target);
    std::ranges::transform(text, target,
                           [](char16_t unit) { return static_cast<char>(toAnsi(unit)); });
    return bytes;
}

String fromAnsi(std::string_view bytes) {
    String text(bytes.size(), u'\0');
    std::ranges::transform(bytes, text.begin(),
                           [](char byte) { return fromAnsi(static_cast<Byte>(byte)); });
    return text;
}

std::string toUtf8(StringView text, LoneSurrogate lone) {
    std::string bytes(utf8Size(text), '\0');
    char* target = bytes.data();
    while (!text.empty()) {
        copyAscii(text, target);
        if (text.empty()) break;
        const Decoded next = decodeUtf16(text);
        const bool alone = isHighSurrogate(next.character) || isLowSurrogate(next.character);
        target = encodeUtf8(alone && lone == LoneSurrogate::Replace ? U'\xFFFD' : next.character,
                            target);
        text.remove_prefix(next.length);
    }
    return bytes;
}

String fromUtf8(std::string_view bytes) {
    String text(bytes.size(), u'\0');  // no byte makes more than one unit
    char16_t* target = text.data();
    while (!bytes.empty()) {
        copyAscii(bytes, target);
        if (bytes.empty()) break;
        const Decoded next = decodeUtf8(bytes);
        if (next.length == 0) {
            *target++ = u'\xFFFD';
        } else if (next.character < 0x10000) {
            *target++ = static_cast<char16_t>(next.character);
        } else {
            *target++ = static_cast<char16_t>(0xD800 + ((next.character - 0x10000) >> 10));
            *target++ = static_cast<char16_t>(0xDC00 + (next.character & 0x3FF));
        }
        bytes.remove_prefix(next.length == 0 ? 1 : next.length);
    }
    text.resize(static_cast<std::size_t>(target - text.data()));
    return text;
}

bool isUtf8(std::string_view bytes) {
    while (true) {
        bytes.remove_prefix(asciiRun(bytes));
        if (bytes.empty()) return true;
        const Decoded next = decodeUtf8(bytes);
        if (next.length == 0 || isHighSurrogate(next.character) || isLowSurrogate(next.character))
            return false;
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

}  // namespace quorkit::runtime
