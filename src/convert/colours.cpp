#include <quorkit/GQuorConvert.h>

#include <algorithm>

#include "runtime/letter_case.h"
#include "runtime/trim.h"

namespace quorkit {
namespace {

void require(bool fits) {
    if (!fits) raise(ErrorNumber::InvalidProcedureCall);
}

bool take(StringView& text, char16_t unit) {
    if (!text.starts_with(unit)) return false;
    text.remove_prefix(1);
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
    if (take(text, u',') || take(text, u';')) text = runtime::Trim(text);
}

Long colourOf(Long red, Long green, Long blue) {
    return red + 256 * green + 65536 * blue;
}

Long fromHexadecimal(StringView digits) {
    require(digits.size() == 6);
    Long value = 0;
    for (const char16_t unit : digits) {
        const auto digit = StringView(u"0123456789abcdef").find(unit);
        require(digit != StringView::npos);
        value = value * 16 + static_cast<Long>(digit);
    }
    return colourOf(value >> 16, value >> 8 & 255, value & 255);
}

}  // namespace

Long GQuorConvert::RGBString_to_RGBColor(const String& sRGB) {
    const String lower = runtime::toLower(sRGB);
    StringView text = runtime::Trim(lower);
    if (take(text, u'#')) return fromHexadecimal(text);

    constexpr StringView function = u"rgb";
    if (text.starts_with(function)) {
        text = runtime::Trim(text.substr(function.size()));
        require(take(text, u'(') && text.ends_with(u')'));
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
