// Texts as UTF-8, for hosts and clients that speak it. Unless they ask for something else, bytes
// that are no UTF-8 pass through a text and back, so that every name of a file does: it opens
// again, whatever it is made of.
#pragma once

#include <quorkit/values.h>
#include <quorkit/values/malformed.h>

#include <string>
#include <string_view>

namespace quorkit {

String fromUtf8(std::string_view bytes, Malformed malformed = Malformed::AsBytes);
std::string toUtf8(StringView text, Malformed malformed = Malformed::AsBytes);

}  // namespace quorkit
