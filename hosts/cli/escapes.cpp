#include "cli/escapes.h"

#include <optional>

namespace quorkit::cli {
namespace {

constexpr StringView kEscapes = u"rnt0\\";
constexpr StringView kMeanings{u"\r\n\t\0\\", 5};

std::optional<char16_t> hexadecimalUnit(StringView digits) {
    if (digits.size() != 4) return {};
    unsigned unit = 0;
    for (const char16_t digit : digits) {
        const std::size_t value = StringView(u"0123456789abcdef0123456789ABCDEF").find(digit);
        if (value == StringView::npos) return {};
        unit = unit << 4 | (value & 15);
    }
    return static_cast<char16_t>(unit);
}

}  // namespace

String unescape(StringView text) {
    String result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t next = text[i] == u'\\' && i + 1 < text.size() ? text[i + 1] : u' ';
        if (const std::size_t known = kEscapes.find(next); known != StringView::npos) {
            result += kMeanings[known];
            i += 1;
        } else if (const auto unit =
                       hexadecimalUnit(text.substr(next == u'u' ? i + 2 : text.size(), 4))) {
            result += *unit;
            i += 5;
        } else {
            result += text[i];
        }
    }
    return result;
}

}  // namespace quorkit::cli
