// Values of the registry as the texts that the members of GQuorRegistry take and give.
#pragma once

#include <quorkit/ports/registry.h>

namespace quorkit::registry {

/// What the data of a value fill of a buffer: characters of a text, with the U+0000 at its end, and
/// bytes of everything else.
std::size_t roomOf(const RegistryValue& value);

/// Texts without the last character when that is U+0000; data without a type as characters of code
/// page 1252, the same way; a DWORD as a decimal number, above 2147483648 less 4294967296 (
/// 2147483648 itself stays positive). "" for all other types.
String convertRegValue(const RegistryValue& value);

/// `text` as a value of type kRegString.
RegistryValue stringValue(const String& text);

}  // namespace quorkit::registry
