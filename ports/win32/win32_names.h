// Names of files, and what they lead to.
#pragma once

#include <quorkit/ports/folders.h>
#include <windows.h>

namespace quorkit::native {

inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

bool validName(const String& name);
String fullName(const String& name);
/// The name where every link is followed. It is the same whether the last component exists or not:
/// a file may be away for the moment in which it is replaced. Empty when there is none.
String finalName(const String& name);

/// Whether a reparse point with this tag is a link. Other parts of the system use them too.
inline bool isLinkTag(DWORD tag) {
    return tag == IO_REPARSE_TAG_SYMLINK || tag == IO_REPARSE_TAG_MOUNT_POINT;
}
/// Whether a name that is a reparse point is a link.
bool isLink(const String& name);

/// kAccessDenied for a folder and for a file that is read-only.
ErrorCode mayBeWritten(const String& name);
/// The attributes and the time of what `name` leads to; false when it leads nowhere.
bool describeTarget(const String& name, std::uint32_t& attributes, FileTime& lastWrite);

inline FileTime timeOf(FILETIME time) {
    return (FileTime{time.dwHighDateTime} << 32) | time.dwLowDateTime;
}

}  // namespace quorkit::native
