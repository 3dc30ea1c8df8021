// Names as text: UTF-16 in the interface, bytes on disk.
//
// A name on disk is UTF-8. Two kinds of bytes are written in a name as the lone surrogate U+DC00 +
// byte, so that every file can be opened: bytes that are not valid UTF-8, and the backslash, which
// separates names in the interface.
#pragma once

#include <quorkit/values.h>

#include <string>
#include <string_view>

namespace quorkit::native {

/// Appends the bytes of a text. False when it holds a lone surrogate that stands for no byte; then
/// `bytes` is unspecified.
bool appendBytes(StringView text, std::string& bytes);

/// The text that stands for the bytes of a disk name.
String textOf(std::string_view bytes);

}  // namespace quorkit::native
