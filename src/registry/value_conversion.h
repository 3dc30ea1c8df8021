// Converts between values of the registry and the texts that members of GQuorRegistry use.
#pragma once

#include <quorkit/ports/registry.h>

namespace quorkit::registry {

/// The room that the data of a value take in a buffer: characters for a text, with the U+0000 at
/// its end, bytes for everything else.
std::size_t roomOf(const RegistryValue& value);

/// Texts, and data without a type as characters of code page 1252, lose one U+0000 at their end. A
/// DWORD becomes a decimal number; above 2147483648 it is reduced by 4294967296 (2147483648 itself
/// stays positive). "" for all other types.
String convertRegValue(const RegistryValue& value);

/// `text` as a value of type kRegString.
RegistryValue stringValue(const String& text);

}  // namespace quorkit::registry
