// Going through a folder and all that is beneath it.
#pragma once

#include <quorkit/ports/folders.h>

#include <cstddef>
#include <optional>
#include <unordered_set>
#include <vector>

namespace quorkit::file {

/// The folders of a tree, each before those in it, and all that is beneath one before the next. A
/// link to a folder is one of them, but not where it leads to the folder that it stands in or to
/// one around that, and one folder is walked through links only once: so the walk ends.
class FolderWalk {
   public:
    /// `folder` ends in a separator.
    FolderWalk(Files& files, String folder) : files_(files), pending_{std::move(folder)} {}

    /// Goes to the next folder, at first to the one the walk begins with. False behind the last.
    bool next();
    /// Where the walk is, with a separator at the end.
    const String& folder() const { return folder_; }
    /// Notes an entry of the current folder that is a folder, to go there later. Not a link of
    /// which it is not known where it leads.
    void descendTo(const FindData& entry);

   private:
    bool mayFollow(const String& link);

    Files& files_;
    std::vector<String> pending_;  ///< the next one is the last
    std::size_t noted_ = 0;        ///< where those of the current folder begin
    String folder_;
    std::optional<String> target_;  ///< what `folder_` leads to, once it has been asked for
    std::unordered_set<String> followed_;
};

}  // namespace quorkit::file
