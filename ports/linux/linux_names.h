// Names of the interface and their paths on disk.
#pragma once

#include <quorkit/ports/files.h>

#include <string>
#include <string_view>

namespace quorkit::native {

/// The path that a name stands for. A name that exists as it is spelled is taken so. Else each
/// component that is missing stands for the one that differs in letter case alone, the first by
/// code units where there are several; from the first that is not there at all the rest stays as
/// spelled, and so does what lies in a folder that cannot be read. ".." is what the kernel takes it
/// for. "C:x" lies in the current folder if that is on the drive, else in the drive's root; "C:" is
/// the root.
///
/// kInvalidName for a name that no file can have, kPathNotFound for a drive or a share that is not
/// there. C: and names without a drive never look at the mounts.
ErrorCode pathOf(const String& name, std::string& path);

/// The name that stands for a path: with the letter of the drive it lies on; that of a relative
/// path is relative.
String nameOf(std::string_view path);

/// The name that pathOf makes exactly this path of, whatever else differs from it in letter case.
/// It begins as such names do on Windows, and needs no look at the mounts.
String literalNameOf(const std::string& path);

/// Follows every link that `path` leads through. The last component need not exist. A link that
/// another user has put into a folder where everyone may put files (a sticky one that all may
/// write) is kAccessDenied, as its owner chooses where it leads; the rule of the kernel's
/// protected_symlinks, which does not hold on every system.
ErrorCode finalPath(std::string& path);

/// The folder that a path stands in; "." when it names none.
std::string folderOf(const std::string& path);

}  // namespace quorkit::native
