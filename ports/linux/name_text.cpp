#include "linux/name_text.h"

#include <algorithm>

#include "runtime/code_page.h"

namespace quorkit::disk {
namespace {

constexpr char16_t kByte = 0xDC00;
constexpr char16_t kBackslash = kByte + '\\';

bool isSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}
bool isPair(StringView text) {
    return text.size() >= 2 && text[0] >= 0xD800 && text[0] <= 0xDBFF && text[1] >= 0xDC00 &&
           text[1] <= 0xDFFF;
}
bool standsForByte(char16_t unit) {
    return unit == kBackslash || (unit >= kByte + 0x80 && unit <= kByte + 0xFF);
}

/// The length of the character at the start of `bytes`, which are not empty; 0 when it is none.
std::size_t characterLength(std::string_view bytes) {
    const auto first = static_cast<unsigned char>(bytes[0]);
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    return length <= bytes.size() && runtime::isUtf8(bytes.substr(0, length)) ? length : 0;
}

}  // namespace

bool appendBytes(StringView text, std::string& bytes) {
    while (!text.empty()) {
        const auto lone = std::ranges::find_if(text, isSurrogate);
        auto length = static_cast<std::size_t>(lone - text.begin());
        while (isPair(text.substr(length))) length += 2;
        bytes += runtime::toUtf8(text.substr(0, length));
        text.remove_prefix(length);
        if (text.empty() || !isSurrogate(text[0])) continue;
        if (!standsForByte(text[0])) return false;
        bytes += static_cast<char>(text[0] - kByte);
        text.remove_prefix(1);
    }
    return true;
}

String textOf(std::string_view bytes) {
    if (bytes.find('\\') == std::string_view::npos && runtime::isUtf8(bytes))
        return runtime::fromUtf8(bytes);
    String text;
    while (!bytes.empty()) {
        const std::size_t length = bytes[0] == '\\' ? 0 : characterLength(bytes);
        if (length == 0)
            text += static_cast<char16_t>(kByte + static_cast<unsigned char>(bytes[0]));
        else
            text += runtime::fromUtf8(bytes.substr(0, length));
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return text;
}

}  // namespace quorkit::disk
