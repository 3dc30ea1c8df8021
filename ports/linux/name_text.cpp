#include "linux/name_text.h"

#include <algorithm>

#include "base/unicode.h"

namespace quorkit::native {
namespace {

constexpr char16_t kBackslash = base::kByteSurrogates + u'\\';

}  // namespace

bool appendBytes(StringView text, std::string& bytes) {
    String name(text);
    std::size_t lone = 0;
    while ((lone = base::findLoneSurrogate(name, lone)) != StringView::npos) {
        char16_t& unit = name[lone++];
        if (unit != kBackslash && !base::standsForByte(unit)) return false;
        if (unit == kBackslash) unit = u'\\';
    }
    bytes += base::toUtf8(name, Malformed::AsBytes);
    return true;
}

String textOf(std::string_view bytes) {
    String text = base::fromUtf8(bytes, Malformed::AsBytes);
    std::ranges::replace(text, u'\\', kBackslash);
    return text;
}

}  // namespace quorkit::native
