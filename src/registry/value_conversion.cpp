#include "registry/value_conversion.h"

#include <string>

#include "base/code_page.h"
#include "base/dword.h"
#include "base/unicode.h"

namespace quorkit {
namespace {

String decimal(std::uint32_t number) {
    constexpr std::int64_t lastPositive = std::int64_t{1} << 31;
    const std::int64_t value = number > lastPositive ? number - 2 * lastPositive : number;
    const std::string digits = std::to_string(value);
    return String(digits.begin(), digits.end());
}

}  // namespace

std::size_t roomOf(const RegistryValue& value) {
    const std::size_t bytes = value.data.size();
    return isRegistryText(value.type) ? bytes / 2 + bytes % 2 : bytes;
}

String convertRegValue(const RegistryValue& value) {
    if (value.type == kRegDWord) return decimal(base::dwordIn(value.data));
    String text;
    if (isRegistryText(value.type))
        text = base::fromUtf16(value.data);
    else if (value.type == kRegNone)
        text = base::fromAnsi(value.data);
    if (text.ends_with(u'\0')) text.pop_back();
    return text;
}

RegistryValue stringValue(const String& text) {
    return {kRegString, base::toUtf16(text + u'\0')};
}

}  // namespace quorkit
