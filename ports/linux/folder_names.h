// Names of keys as names of folders.
//
// The name of a folder is the key's name in small letters, as UTF-8, so one key has one folder
// however its name is spelled. "%" and two hexadecimal digits replace each byte that a folder's
// name cannot have or that is reserved for the store: control characters, "/", "%", "@" and "." in
// front, and lone surrogates. A name that becomes too long for a folder is cut and ends in "%~" and
// a hash of the whole name.
#pragma once

#include <quorkit/values.h>

#include <string>
#include <string_view>

namespace quorkit::native {

/// The folder of the key `name`.
std::string folderNameOf(const String& name);
/// The whole name in its spelling, encoded in the same way.
std::string spelledNameOf(const String& name);
/// The name from which spelledNameOf made this text. For any other text the result is unspecified.
String nameOfSpelled(std::string_view text);

/// Whether folderNameOf could have made this name. For a name that was cut nobody can tell.
bool isFolderName(std::string_view folder);
/// Whether the name was too long for its folder.
bool isCutOff(std::string_view folder);

}  // namespace quorkit::native
