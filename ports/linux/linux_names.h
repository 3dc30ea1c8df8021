// Names of the interface, and their paths on disk.
#pragma once

#include <quorkit/ports/files.h>

#include <string>
#include <string_view>

namespace quorkit::native {

/// The path that a name means. A name that exists in exactly this spelling means that file.
/// Otherwise each missing component means the entry that differs only in letter case, the first by
/// code units if there are several. From the first component without such an entry on, the rest
/// keeps its spelling; so does a name beneath a folder that cannot be read. ".." has the meaning
/// that the kernel gives it. "C:x" is in the current folder if that is on the drive, else in the
/// drive's root; "C:" is the root.
///
/// kInvalidName for a name that no file can have, kPathNotFound for a missing drive or share. For
/// C: and names without a drive the mounts are never read.
ErrorCode pathOf(const String& name, std::string& path);

/// The name of a path, with the letter of the drive that holds it; a relative path has a relative
/// name.
String nameOf(std::string_view path);

/// The name that pathOf turns into exactly this path, even if other files differ only in letter
/// case. It begins as such names do on Windows, and the mounts are not read.
String literalNameOf(const std::string& path);

/// Follows every link in `path`. The last component need not exist. kAccessDenied for a link of
/// another user in a folder where everyone may put files (sticky, and writable for all), because
/// that user chooses where it leads. The kernel's protected_symlinks has the same rule, but not on
/// every system.
ErrorCode finalPath(std::string& path);

/// The folder that contains a path; "." when the path names none.
std::string folderOf(const std::string& path);

}  // namespace quorkit::native
