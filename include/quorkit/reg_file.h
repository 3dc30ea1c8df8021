// Keys of the registry as .reg files, to carry them from one registry to another. docs/registry.md
// tells what such a file holds.
#pragma once

#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

#include <optional>
#include <string>
#include <string_view>

namespace quorkit {

/// A key, a file or a text, and what is wrong with it, in words for a person.
struct RegFileFailure {
    String place;
    std::string why;
};
/// Nothing when all went well.
using RegFileResult = std::optional<RegFileFailure>;

/// The key of a full name, such as HKCU\Software\Acme, and all beneath it as a file of version 5.
/// When a key beneath cannot be read or written down, `content` has the others and the result names
/// the first such one; when it is the key itself, `content` is empty.
RegFileResult exportKey(Ports& ports, StringView key, std::string& content);
/// The same into a file, in one step: after a failure to write it is what it was.
RegFileResult exportKeyToFile(Ports& ports, StringView key, const String& file);

/// Makes the changes of a file with this content, in its order. Nothing is changed when a line is
/// bad; when the registry refuses a change, those before it stay. `name` is what the result calls
/// the content.
RegFileResult importRegFile(Ports& ports, std::string_view content, const String& name);
/// The same from a file.
RegFileResult importRegFileFrom(Ports& ports, const String& file);

}  // namespace quorkit
