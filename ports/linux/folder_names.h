// Names of keys as names of folders.
//
// A folder bears the name in small letters, in UTF-8, so that one key has one folder however its
// name is spelled. "%" and two hexadecimal digits stand for each byte of what no folder can bear,
// or what is the store's own: control characters, "/", "%", "@" and "." in front, and halves of
// characters. A name that becomes too long for a folder is cut off, "%~" and a number made of the
// whole name behind it.
#pragma once

#include <quorkit/values.h>

#include <string>
#include <string_view>

namespace quorkit::native {

/// The folder of the key `name`.
std::string folderNameOf(const String& name);
/// The same bytes for the name as it is spelled, whole.
std::string spelledNameOf(const String& name);
/// The name that spelledNameOf makes this text of; what it makes of no name comes out somehow.
String nameOfSpelled(std::string_view text);

/// Whether folderNameOf made this of some name. Of a name that was cut off nobody can tell.
bool isFolderName(std::string_view folder);
/// Whether a name was too long for its folder.
bool isCutOff(std::string_view folder);

}  // namespace quorkit::native
