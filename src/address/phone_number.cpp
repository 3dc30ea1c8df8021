#include <quorkit/GQuorStrings.h>
#include <quorkit/QuorAddress.h>

#include <algorithm>
#include <initializer_list>
#include <numeric>

namespace quorkit {
namespace {

constexpr StringView kServiceNumbers[] = {u"0800", u"0842", u"0844", u"0848",
                                          u"0900", u"0901", u"0906"};

/// The last digits in groups of the given sizes.
String grouped(StringView digits, std::initializer_list<std::size_t> sizes) {
    digits.remove_prefix(digits.size() -
                         std::accumulate(sizes.begin(), sizes.end(), std::size_t{0}));
    String text;
    for (const std::size_t size : sizes) {
        if (!text.empty()) text += u' ';
        text += digits.substr(0, size);
        digits.remove_prefix(size);
    }
    return text;
}

bool isServiceNumber(StringView digits) {
    return std::ranges::find(kServiceNumbers, digits.substr(0, 4)) != std::end(kServiceNumbers);
}

/// `digits` in the groups of the Swiss plan; `typed` when the plan has no such number of digits.
String formatted(StringView digits, bool expand, const String& prefix, const String& typed) {
    switch (digits.size()) {
        case 7:
            return grouped(digits, {3, 2, 2});
        case 9:
            return grouped(digits, {2, 3, 2, 2});
        case 10:
            if (isServiceNumber(digits)) return grouped(digits, {4, 3, 3});
            if (expand) return prefix + u' ' + grouped(digits, {2, 3, 2, 2});
            return grouped(digits, {3, 3, 2, 2});
        case 13:
            if (digits.starts_with(u"00800")) return grouped(digits, {5, 3, 3, 2});
            if (digits.starts_with(u"00")) return grouped(digits, {4, 2, 3, 2, 2});
            if (expand) return prefix + u' ' + grouped(digits, {2, 3, 3, 2, 2});
            return grouped(digits, {3, 3, 3, 2, 2});
        case 14:
            return grouped(digits, {4, 3, 3, 2, 2});
        default:
            return typed;
    }
}

}  // namespace

String QuorAddress::formatPhoneNumber(const String& sPhoneNr,
                                      const Optional<Boolean>& bExpandToInternational,
                                      const Optional<String, Text(u"0041")>& sIntPrefix,
                                      const Optional<Unchanged<Boolean>>& bUsePlusSymbol) const {
    const String digits =
        (sPhoneNr.starts_with(u'+') ? u"00" : u"") + GQuorStrings(ports_).getOnlyNumbers(sPhoneNr);
    String number = formatted(digits, *bExpandToInternational, *sIntPrefix, sPhoneNr);
    if (*bUsePlusSymbol && number.starts_with(u"00")) number.replace(0, 2, u"+");
    return number;
}

}  // namespace quorkit
