// The text of names: UTF-16 in the interface, bytes on disk.
//
// A disk name is UTF-8. A byte that belongs to no UTF-8, and a backslash, which separates in the
// interface, stand in a name as the lone surrogate U+DC00 + byte, so that every name opens again.
#pragma once

#include <quorkit/values.h>

#include <string>
#include <string_view>

namespace quorkit::native {

/// Appends the bytes of a text. False when it holds a lone surrogate that stands for no byte; then
/// `bytes` holds anything.
bool appendBytes(StringView text, std::string& bytes);

/// The text that stands for the bytes of a disk name.
String textOf(std::string_view bytes);

}  // namespace quorkit::native
