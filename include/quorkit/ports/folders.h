// Operations on folders and their entries. Names and results are as for files.
#pragma once

#include <quorkit/ports/files.h>

#include <cstdint>

namespace quorkit {

/// Bits of FindData::attributes, by the numbers of Win32.
enum FileAttribute : std::uint32_t {
    kReadOnly = 1,  ///< may not be written by this process
    kHidden = 2,    ///< on Linux: the name begins with a full stop
    kSystem = 4,    ///< on Linux: never
    kDirectory = 16,
    kArchive = 32,  ///< on Linux: every regular file
    kNormal = 128,
    kReparsePoint = 1024,  ///< a link; the other bits are those of its target
};

/// 100 nanoseconds since 1 January 1601, UTC.
using FileTime = std::uint64_t;

/// One entry of a folder.
struct FindData {
    String name;
    std::uint32_t attributes = 0;
    FileTime lastWrite = 0;  ///< 0 when it was not asked for or is not known
};

enum class FindDetail {
    Names,       ///< the name and, of the attributes, kDirectory and kReparsePoint
    Times,       ///< also the time of the last change
    Attributes,  ///< also all other attributes
};

class Folders {
   public:
    virtual ~Folders() = default;

    /// The attributes of a file or folder, with kReparsePoint for a link. A link without a target
    /// is not found.
    virtual ErrorCode GetFileAttributesA(const String& name, std::uint32_t& attributes) = 0;
    /// Makes one folder; kPathNotFound when the folder above it is missing.
    virtual ErrorCode CreateDirectoryA(const String& name) = 0;

    /// Begins to list `folder` in the system's order and gives its first entry. "." and ".." are
    /// among the entries, but not always in the root of a drive. An entry that disappears meanwhile
    /// may be left out. kFileNotFound for a folder without entries, kPathNotFound for a name that
    /// leads to no folder. On success EndListing must follow.
    virtual ErrorCode FirstEntry(const String& folder, FindDetail detail, Handle& search,
                                 FindData& entry) = 0;
    /// The next entry; kNoMoreFiles behind the last one.
    virtual ErrorCode NextEntry(Handle search, FindData& entry) = 0;
    virtual void EndListing(Handle search) = 0;
};

}  // namespace quorkit
