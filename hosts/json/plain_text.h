// A value as plain text in one piece.
#pragma once

#include <quorkit/variant.h>

#include <string>

namespace quorkit::json {

/// Texts and numbers as they are, True or False, dates as 2024-01-31T13:45:00, "" for Empty,
/// missing and Nothing, and JSON notation for everything else.
std::string plainText(const Variant& value);

}  // namespace quorkit::json
