#include <quorkit/GQuorConvert.h>

#include <algorithm>

#include "base/letter_case.h"
#include "runtime/trim.h"

namespace quorkit {
namespace {

void require(bool fits) {
    if (!fits) raise(ErrorNumber::InvalidProcedureCall);
}

bool take(StringView& text, StringView start) {
    if (!text.starts_with(start)) return false;
    text.remove_prefix(start.size());
    return true;
}

/// Takes a decimal number off the front of `text`.
Long takePart(StringView& text) {
    constexpr Long most = 255;
    const auto isDigit = [&] { return !text.empty() && text[0] >= u'0' && text[0] <= u'9'; };
    require(isDigit());
    Long part = 0;
    for (; isDigit(); text.remove_prefix(1)) part = std::min(part * 10 + (text[0] - u'0'), most);
    return part;
}

void skipSeparator(StringView& text) {
    text = runtime::Trim(text);
    if (take(text, u",") || take(text, u";")) text = runtime::Trim(text);
}

Long colourOf(Long red, Long green, Long blue) {
    return red + 256 * green + 65536 * blue;
}

constexpr StringView kDigits = u"0123456789abcdef";
constexpr Long kWhite = 0xFFFFFF;

bool consistsOf(StringView digits, StringView text) {
    return !text.empty() && text.find_first_not_of(digits) == StringView::npos;
}

/// A number that is itself the colour.
Long takeNumber(StringView text, std::size_t base) {
    require(consistsOf(kDigits.substr(0, base), text));
    Long value = 0;
    for (const char16_t unit : text) {
        value = value * static_cast<Long>(base) + static_cast<Long>(kDigits.find(unit));
        require(value <= kWhite);
    }
    return value;
}

/// Six digits, red first, or three of which each counts twice.
Long fromRedToBlue(StringView digits) {
    const std::size_t width = digits.size() / 3;
    require(digits.size() % 3 == 0 && (width == 1 || width == 2));
    Long parts[3];
    for (std::size_t i = 0; i < 3; ++i)
        parts[i] = takeNumber(digits.substr(i * width, width), 16) * (width == 1 ? 17 : 1);
    return colourOf(parts[0], parts[1], parts[2]);
}

}  // namespace

Long GQuorConvert::RGBString_to_RGBColor(const String& sRGB) {
    const String lower = base::toLower(sRGB);
    StringView text = runtime::Trim(lower);
    if (take(text, u"#") || take(text, u"0x")) return fromRedToBlue(text);
    if (take(text, u"&h"))
        return takeNumber(text.substr(0, text.size() - (text.ends_with(u'&') ? 1 : 0)), 16);
    // People write no number with a leading zero, but dark colours have one.
    const bool sixDigits = text.size() == 6 && consistsOf(kDigits, text);
    const bool decimal = consistsOf(kDigits.substr(0, 10), text);
    if (sixDigits && (!decimal || text.front() == u'0')) return fromRedToBlue(text);
    if (decimal) return takeNumber(text, 10);

    if (take(text, u"rgb")) {
        text = runtime::Trim(text);
        require(take(text, u"(") && text.ends_with(u')'));
        text.remove_suffix(1);
        text = runtime::Trim(text);
    }
    const Long red = takePart(text);
    skipSeparator(text);
    const Long green = takePart(text);
    skipSeparator(text);
    const Long blue = takePart(text);
    require(text.empty());
    return colourOf(red, green, blue);
}

}  // namespace quorkit
