#include <quorkit/GQuorStrings.h>

#include <algorithm>
#include <functional>
#include <iterator>

namespace quorkit {
namespace {

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

template <class Predicate>
String keep(const String& s, Predicate predicate) {
    String kept;
    std::ranges::copy_if(s, std::back_inserter(kept), predicate);
    return kept;
}

}  // namespace

String GQuorStrings::StringToNumber(const String& s) {
    const bool sign = !s.empty() && (s.front() == u'-' || s.front() == u'+');
    return s.substr(0, sign) + keep(s, [](char16_t unit) { return isDigit(unit) || unit == u'.'; });
}

String GQuorStrings::getOnlyNumberPart(const String& s) {
    return StringToNumber(s);
}

String GQuorStrings::getOnlyNumbers(const String& s) {
    return keep(s, isDigit);
}

String GQuorStrings::getNoNumbers(const String& s) {
    return keep(s, std::not_fn(isDigit));
}

}  // namespace quorkit
