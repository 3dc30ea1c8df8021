// Walks through a folder and all folders beneath it.
#pragma once

#include <quorkit/ports/folders.h>

#include <cstddef>
#include <optional>
#include <unordered_set>
#include <vector>

namespace quorkit::file {

/// The folders of a tree: each comes before the folders in it, and all that is beneath it before
/// the next. The walk follows a link to a folder, except to a folder that contains the link. It
/// follows only one link to each folder, so that it always ends.
class FolderWalk {
   public:
    /// `folder` ends in a separator.
    FolderWalk(Files& files, String folder) : files_(files), pending_{std::move(folder)} {}

    /// Goes to the next folder; the first one is that of the constructor. False behind the last
    /// one.
    bool next();
    /// The current folder, with a separator at its end.
    const String& folder() const { return folder_; }
    /// Schedules an entry of the current folder that is a folder. A link whose target is not known
    /// is ignored.
    void descendTo(const FindData& entry);

   private:
    bool mayFollow(const String& link);

    Files& files_;
    std::vector<String> pending_;  ///< the next one is the last
    std::size_t noted_ = 0;        ///< where the folders found in the current one begin
    String folder_;
    std::optional<String> target_;  ///< the target of `folder_`, once it was asked for
    std::unordered_set<String> followed_;
};

}  // namespace quorkit::file
