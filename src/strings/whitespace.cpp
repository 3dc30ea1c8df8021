#include <quorkit/GQuorStrings.h>

#include <algorithm>

#include "runtime/code_page.h"

namespace quorkit {
namespace {

bool isWhite(char16_t unit) {
    return runtime::toAnsi(unit) < 33;
}

}  // namespace

String GQuorStrings::NullStringToString(const String& s) {
    return s.substr(0, s.find(u'\0'));
}

String GQuorStrings::TrimWhiteSpace(const String& s) {
    return RTrimWhiteSpace(LTrimWhiteSpace(s));
}

String GQuorStrings::RTrimWhiteSpace(const String& s) {
    return String(s.begin(), std::find_if_not(s.rbegin(), s.rend(), isWhite).base());
}

String GQuorStrings::LTrimWhiteSpace(const String& s) {
    return String(std::ranges::find_if_not(s, isWhite), s.end());
}

Boolean GQuorStrings::isWhiteSpace(Unchanged<String> c) {
    return !c->empty() && isWhite(c->front());
}

}  // namespace quorkit
