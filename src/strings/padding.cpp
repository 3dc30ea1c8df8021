#include <quorkit/GQuorStrings.h>

namespace quorkit {
namespace {

/// The text that brings `s` to the length `maxLen`.
String padding(const String& sPadChar, const String& s, Long maxLen) {
    if (sPadChar.empty() || maxLen <= 0 || s.size() >= static_cast<std::size_t>(maxLen)) return {};
    return String(static_cast<std::size_t>(maxLen) - s.size(), sPadChar.front());
}

}  // namespace

String GQuorStrings::LPad(const String& sPadChar, const String& s, Long maxLen) {
    return padding(sPadChar, s, maxLen).append(s);
}

String GQuorStrings::RPad(const String& sPadChar, const String& s, Long maxLen) {
    return s + padding(sPadChar, s, maxLen);
}

}  // namespace quorkit
