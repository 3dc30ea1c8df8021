// Searching folders.
#pragma once

#include <quorkit/ports/folders.h>

#include "file/wildcard.h"

namespace quorkit::file {

/// Lists the entries of a folder in the system's order, "." and ".." included.
class FolderEntries {
   public:
    FolderEntries(Folders& folders, String folder, FindDetail detail)
        : folders_(folders), folder_(std::move(folder)), detail_(detail) {}
    ~FolderEntries() {
        if (open_) folders_.EndListing(search_);
    }
    FolderEntries(const FolderEntries&) = delete;
    FolderEntries& operator=(const FolderEntries&) = delete;

    /// The next entry, beginning with the first one. False when there is none; `status` tells why.
    bool next(FindData& entry);
    /// kNoMoreFiles behind the last entry. Another code when the folder cannot be searched, or not
    /// to its end.
    ErrorCode status() const { return status_; }

   private:
    Folders& folders_;
    String folder_;
    FindDetail detail_;
    Handle search_ = Handle::Invalid;
    bool open_ = false;
    ErrorCode status_ = kSuccess;
};

/// Lists the entries that match a name with wildcards. The part behind its last separator is the
/// pattern, the part in front the folder; wildcards in the folder match nothing.
class NameSearch {
   public:
    NameSearch(Folders& folders, StringView name, FindDetail detail);

    /// The next entry, beginning with the first one. False when there is none.
    bool next(FindData& entry);

   private:
    NameSearch(Folders& folders, StringView name, std::size_t pattern, FindDetail detail);

    FolderEntries entries_;
    Wildcard pattern_;
};

/// Whether the entry is "." or "..", the folder itself or the one above it.
bool isSelfOrParent(StringView entryName);

}  // namespace quorkit::file
