#include "base/code_page.h"

#include <algorithm>
#include <array>

#include "base/ascii_run.h"

namespace quorkit::base {
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

}  // namespace quorkit::base
