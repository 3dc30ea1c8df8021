#include <quorkit/GQuorStrings.h>

namespace quorkit {
namespace {

/// The number of characters that `s` lacks to the length `maxLen`.
std::size_t missing(const String& sPadChar, const String& s, Long maxLen) {
    if (sPadChar.empty() || maxLen <= 0 || s.size() >= static_cast<std::size_t>(maxLen)) return 0;
    return static_cast<std::size_t>(maxLen) - s.size();
}

String padded(std::size_t front, const String& sPadChar, const String& s, std::size_t back) {
    String result;
    result.reserve(front + s.size() + back);
    if (front != 0) result.append(front, sPadChar.front());
    result += s;
    if (back != 0) result.append(back, sPadChar.front());
    return result;
}

}  // namespace

String GQuorStrings::LPad(const String& sPadChar, const String& s, Long maxLen) {
    return padded(missing(sPadChar, s, maxLen), sPadChar, s, 0);
}

String GQuorStrings::RPad(const String& sPadChar, const String& s, Long maxLen) {
    return padded(0, sPadChar, s, missing(sPadChar, s, maxLen));
}

}  // namespace quorkit
