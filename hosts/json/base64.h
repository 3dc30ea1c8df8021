// Bytes as base 64 (RFC 4648, section 4, with padding).
#pragma once

#include <quorkit/values.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorkit::json {

std::string toBase64(std::span<const Byte> bytes);
/// Nothing when the text is not base 64.
std::optional<std::vector<Byte>> fromBase64(std::string_view text);

}  // namespace quorkit::json
