// UTF-8 for the command line and JSON. Bytes that are not valid UTF-8 survive a round trip, as in
// names of files: the file opens, whatever bytes its name has.
#pragma once

#include "base/unicode.h"

namespace quorkit::json {

inline String fromUtf8(std::string_view bytes) {
    return base::fromUtf8(bytes, base::Malformed::AsBytes);
}
inline std::string toUtf8(StringView text) {
    return base::toUtf8(text, base::Malformed::AsBytes);
}

}  // namespace quorkit::json
