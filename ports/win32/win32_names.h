// Names of files, and their targets.
#pragma once

#include <quorkit/ports/folders.h>
#include <windows.h>

namespace quorkit::native {

inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

bool validName(const String& name);
String fullName(const String& name);
/// The name after all links are followed; empty when there is none. It does not depend on whether
/// the last component exists, because a file is missing for the moment in which it is replaced.
String finalName(const String& name);

/// Whether a reparse point with this tag is a link; other kinds exist too.
inline bool isLinkTag(DWORD tag) {
    return tag == IO_REPARSE_TAG_SYMLINK || tag == IO_REPARSE_TAG_MOUNT_POINT;
}
/// Whether a name that is a reparse point is a link.
bool isLink(const String& name);

/// kAccessDenied for a folder and for a read-only file.
ErrorCode mayBeWritten(const String& name);
/// The attributes and the time of the target of `name`; false when there is none.
bool describeTarget(const String& name, std::uint32_t& attributes, FileTime& lastWrite);

inline FileTime timeOf(FILETIME time) {
    return (FileTime{time.dwHighDateTime} << 32) | time.dwLowDateTime;
}

}  // namespace quorkit::native
