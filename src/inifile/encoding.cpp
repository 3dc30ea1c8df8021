#include "inifile/encoding.h"

#include <algorithm>
#include <cstring>

#include "runtime/code_page.h"

namespace quorkit {

using runtime::kUtf16Mark;
using runtime::kUtf8Mark;

MarkedText takeMarkOff(std::string content) {
    const std::string_view view = content;
    if (view.starts_with(kUtf8Mark))
        return {true, Encoding::Utf8, content.substr(kUtf8Mark.size())};
    if (view.starts_with(kUtf16Mark))
        return {true, Encoding::Utf16,
                runtime::toUtf8(runtime::fromUtf16(view.substr(kUtf16Mark.size())),
                                runtime::LoneSurrogate::Keep),
                std::string(view.substr(view.size() - view.size() % 2))};
    return {false, Encoding::Ansi, std::move(content)};
}

std::string putMarkOn(MarkedText marked) {
    if (!marked.marked) return std::move(marked.text);
    if (marked.encoding == Encoding::Utf8) return std::string(kUtf8Mark) + marked.text;
    return std::string(kUtf16Mark) + runtime::toUtf16(runtime::fromUtf8(marked.text)) + marked.tail;
}

Encoding encodingOf(std::string_view unmarkedText) {
    return runtime::isUtf8(unmarkedText) && !isAscii(unmarkedText) ? Encoding::Utf8
                                                                   : Encoding::Ansi;
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
    return encoding == Encoding::Ansi ? runtime::fromAnsi(bytes) : runtime::fromUtf8(bytes);
}

std::string encode(StringView text, Encoding encoding) {
    if (encoding == Encoding::Ansi) return runtime::toAnsi(text);
    std::string bytes = runtime::toUtf8(text, runtime::LoneSurrogate::Keep);
    if (encoding == Encoding::Utf16 || runtime::isUtf8(bytes)) return bytes;
    String replaced(text);
    for (std::size_t i = 0; i < replaced.size(); ++i) {
        const bool high = replaced[i] >= 0xD800 && replaced[i] < 0xDC00;
        const bool paired = high && i + 1 < replaced.size() && replaced[i + 1] >= 0xDC00 &&
                            replaced[i + 1] < 0xE000;
        if (paired)
            ++i;
        else if (replaced[i] >= 0xD800 && replaced[i] < 0xE000)
            replaced[i] = u'?';
    }
    return runtime::toUtf8(replaced);
}

void addEncoded(std::string& bytes, StringView text, Encoding encoding) {
    const std::size_t size = bytes.size();
    bytes.resize(size + text.size());
    char16_t all = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        bytes[size + i] = static_cast<char>(text[i]);
        all |= text[i];
    }
    if (all < 0x80) return;
    bytes.resize(size);
    bytes += encode(text, encoding);
}

}  // namespace quorkit
