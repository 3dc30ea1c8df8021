#include "strings/whitespace.h"

#include <quorkit/GQuorStrings.h>

#include <algorithm>

namespace quorkit {
namespace {

StringView withoutFront(StringView s) {
    return s.substr(
        static_cast<std::size_t>(std::ranges::find_if_not(s, strings::isWhite) - s.begin()));
}

StringView withoutBack(StringView s) {
    const auto kept = std::find_if_not(s.rbegin(), s.rend(), strings::isWhite).base();
    return s.substr(0, static_cast<std::size_t>(kept - s.begin()));
}

}  // namespace

StringView strings::trimmed(StringView s) {
    return withoutBack(withoutFront(s));
}

String GQuorStrings::NullStringToString(const String& s) {
    return s.substr(0, s.find(u'\0'));
}

String GQuorStrings::TrimWhiteSpace(const String& s) {
    return String(strings::trimmed(s));
}

String GQuorStrings::RTrimWhiteSpace(const String& s) {
    return String(withoutBack(s));
}

String GQuorStrings::LTrimWhiteSpace(const String& s) {
    return String(withoutFront(s));
}

Boolean GQuorStrings::isWhiteSpace(Unchanged<String> c) {
    return !c->empty() && strings::isWhite(c->front());
}

}  // namespace quorkit
