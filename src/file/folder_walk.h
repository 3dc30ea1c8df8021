// Going through a folder and all that is beneath it.
#pragma once

#include <quorkit/ports/files.h>

#include <cstddef>
#include <optional>
#include <vector>

namespace quorkit {

/// The folders of a tree, each before those in it, and all that is beneath one before the next.
/// However deep the tree is, the stack stays small.
class FolderWalk {
   public:
    /// `folder` ends in a separator.
    FolderWalk(Files& files, String folder);

    /// Goes to the next folder, at first to the one the walk begins with. False behind the last.
    bool next();
    /// Where the walk is, with a separator at the end.
    const String& folder() const { return path_.back().name; }
    /// Notes an entry of the current folder that is a folder, to go there later. Not one to which
    /// links lead round: the current folder or one that the walk has come through to it. Nor a link
    /// of which it is not known where it leads.
    void descendTo(const FindData& entry);

   private:
    struct Folder {
        String name;
        std::optional<String> target;  ///< what the name leads to, once it has been asked for
        std::size_t depth = 0;
        bool behindLink = false;  ///< or a link itself
    };

    bool findTarget(Folder& folder) const;
    bool leadsRound(Folder& folder);

    Files& files_;
    std::vector<Folder> pending_;  ///< the next one is the last
    std::size_t noted_ = 0;        ///< where those of the current folder begin
    std::vector<Folder> path_;     ///< from the beginning of the walk to the current folder
};

}  // namespace quorkit
