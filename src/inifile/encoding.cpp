#include "inifile/encoding.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "base/code_page.h"
#include "base/unicode.h"

namespace quorkit::inifile {

using base::kUtf16BigMark;
using base::kUtf16Mark;
using base::kUtf8Mark;

namespace {

constexpr std::string_view kUtf32Marks[] = {{"\xFF\xFE\0\0", 4}, {"\0\0\xFE\xFF", 4}};

/// Converts between UTF-16 in the order of its mark and little-endian UTF-16.
std::string inOrder(std::string_view mark, std::string_view bytes) {
    std::string result(bytes);
    if (mark == kUtf16BigMark)
        for (std::size_t i = 0; i + 1 < result.size(); i += 2) std::swap(result[i], result[i + 1]);
    return result;
}

/// Whether text without a mark is UTF-16. It is when most of the characters that INI files consist
/// of have a NUL beside them, always on the same side. In 8-bit text with a few NULs that is not
/// so.
bool isBareUtf16(std::string_view text) {
    const std::string_view start = text.substr(0, 4096);
    if (start.find('\0') == std::string_view::npos) return false;
    int besideNul[] = {0, 0};
    for (std::size_t i = 0; i + 1 < start.size(); i += 2)
        for (const std::size_t place : {0u, 1u})
            if (std::string_view("[]=\r\n").find(start[i + place]) != std::string_view::npos)
                besideNul[place] += start[i + 1 - place] == '\0' ? 1 : -1;
    return std::ranges::max(besideNul) > 0;
}

}  // namespace

FileText takeApart(std::string content) {
    const std::string_view view = content;
    const auto begins = [&](std::string_view mark) { return view.starts_with(mark); };
    if (std::ranges::any_of(kUtf32Marks, begins)) return {.refused = true};
    if (begins(kUtf8Mark)) return {.mark = kUtf8Mark, .text = content.substr(kUtf8Mark.size())};
    for (const std::string_view mark : {kUtf16Mark, kUtf16BigMark})
        if (begins(mark))
            return {.mark = mark,
                    .text = base::toUtf8(base::fromUtf16(inOrder(mark, view.substr(mark.size()))),
                                         Malformed::Keep),
                    .tail = std::string(view.substr(view.size() - view.size() % 2))};
    if (isBareUtf16(view)) return {.refused = true};
    return {.text = std::move(content)};
}

Encoding encodingOf(const FileText& file) {
    if (!file.mark.empty()) return file.mark == kUtf8Mark ? Encoding::Utf8 : Encoding::Utf16;
    if (isAscii(file.text)) return Encoding::Plain;
    return base::isUtf8(file.text) ? Encoding::Utf8 : Encoding::Ansi;
}

std::optional<std::string> putTogether(FileText file, Encoding encoding) {
    std::string& text = file.text;
    if (file.mark == kUtf8Mark) return text.insert(0, kUtf8Mark);
    if (!file.mark.empty())
        return std::string(file.mark) + inOrder(file.mark, base::toUtf16(base::fromUtf8(text))) +
               file.tail;
    if (isBareUtf16(text)) return std::nullopt;
    if (isAscii(text)) return std::move(text);
    if (encoding == Encoding::Plain) {
        // Two characters of code page 1252 may look like one of UTF-8.
        std::optional<std::string> ansi = encode(base::fromUtf8(text), Encoding::Ansi);
        if (ansi && !base::isUtf8(*ansi)) text = std::move(*ansi);
    } else if (encoding == Encoding::Ansi && base::isUtf8(text)) {
        return std::nullopt;
    }
    return std::move(text);
}

bool isAscii(std::string_view bytes) {
    std::uint64_t all = 0;
    for (; bytes.size() >= sizeof all; bytes.remove_prefix(sizeof all)) {
        std::uint64_t eight;
        std::memcpy(&eight, bytes.data(), sizeof eight);
        all |= eight;
    }
    for (const char byte : bytes) all |= static_cast<unsigned char>(byte);
    return (all & 0x8080'8080'8080'8080) == 0;
}

bool isAscii(StringView text) {
    return std::ranges::all_of(text, [](char16_t unit) { return unit < 0x80; });
}

String decode(std::string_view bytes, Encoding encoding) {
    return encoding == Encoding::Ansi ? base::fromAnsi(bytes) : base::fromUtf8(bytes);
}

std::optional<std::string> encode(StringView text, Encoding encoding) {
    if (encoding == Encoding::Ansi) {
        std::string bytes = base::toAnsi(text);
        if (base::fromAnsi(bytes) != text) return std::nullopt;
        return bytes;
    }
    std::string bytes = base::toUtf8(text, Malformed::Keep);
    if (encoding != Encoding::Utf16 && !base::isUtf8(bytes)) return std::nullopt;
    return bytes;
}

}  // namespace quorkit::inifile
