#include <quorkit/utf8.h>

#include "base/unicode.h"

namespace quorkit {

String fromUtf8(std::string_view bytes, Malformed malformed) {
    return base::fromUtf8(bytes, malformed);
}

std::string toUtf8(StringView text, Malformed malformed) {
    return base::toUtf8(text, malformed);
}

}  // namespace quorkit
