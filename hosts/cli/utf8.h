// UTF-8, which the command line and JSON speak. Bytes that are none pass through a text and back,
// as in the names of files: a name from the command line or to it opens, whatever it is made of.
#pragma once

#include "base/unicode.h"

namespace quorkit::cli {

inline String fromUtf8(std::string_view bytes) {
    return base::fromUtf8(bytes, base::Malformed::AsBytes);
}
inline std::string toUtf8(StringView text) {
    return base::toUtf8(text, base::Malformed::AsBytes);
}

}  // namespace quorkit::cli
