#include <quorkit/GQuorConvert.h>

#include <algorithm>

#include "base/letter_case.h"
#include "runtime/convert.h"
#include "runtime/trim.h"

namespace quorkit {
namespace {

constexpr StringView kYes[] = {u"true",    u"yes", u"on",   u"wahr", u"ja",      u"ein",
                               u"vrai",    u"oui", u"vero", u"si",   u"s\u00EC", u"verdadero",
                               u"s\u00ED", u"x",   u"y",    u"j",    u"t",       u"ok"};

bool saysYes(StringView text) {
    text = runtime::without(runtime::kWhiteSpace, text);
    const auto number = runtime::numberIn(text);
    return number ? *number != 0 : std::ranges::any_of(kYes, [&](StringView word) {
        return base::sameText(text, word);
    });
}

}  // namespace

Integer GQuorConvert::BoolToInt(Boolean bValue) {
    return bValue ? 1 : 0;
}

Boolean GQuorConvert::IntToBool(Integer iValue) {
    return iValue != 0;
}

Boolean GQuorConvert::cBoolEx(const Variant& vValue) {
    if (const auto* text = vValue.getIf<String>()) return saysYes(*text);
    const bool number =
        vValue.is<Boolean>() || vValue.is<Integer>() || vValue.is<Long>() || vValue.is<Double>();
    return number && runtime::CBool(vValue);
}

}  // namespace quorkit
