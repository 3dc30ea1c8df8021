#include <quorkit/GQuorProgram.h>

#include <algorithm>
#include <charconv>

#include "base/code_page.h"

namespace quorkit {
namespace {

constexpr StringView kPlain =
    u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-./_~&:?@#!$*+";
constexpr StringView kDigits = u"0123456789ABCDEF";

/// The number that the hexadecimal digits spell; 0 when a character is no such digit.
Byte numberOf(StringView digits) {
    const std::string text = base::toAnsi(digits);
    unsigned number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number, 16);
    return read.ptr == end ? static_cast<Byte>(number) : Byte{0};
}

}  // namespace

String GQuorProgram::URLPathEncode(Unchanged<String> Text) {
    String encoded;
    encoded.reserve(Text->size());
    for (const char16_t unit : *Text) {
        if (kPlain.find(unit) != StringView::npos) {
            encoded += unit;
            continue;
        }
        const Byte code = base::toAnsi(unit);
        encoded += {u'%', kDigits[code >> 4], kDigits[code & 15]};
    }
    return encoded;
}

String GQuorProgram::URLPathDecode(Unchanged<String> Text) {
    String decoded;
    decoded.reserve(Text->size());
    StringView rest = *Text;
    while (!rest.empty()) {
        const std::size_t plain = std::min(rest.find(u'%'), rest.size());
        decoded += rest.substr(0, plain);
        rest.remove_prefix(plain);
        if (rest.empty()) break;
        const StringView digits = rest.substr(1, 2);
        decoded += base::fromAnsi(numberOf(digits));
        rest.remove_prefix(1 + digits.size());
    }
    return decoded;
}

}  // namespace quorkit
