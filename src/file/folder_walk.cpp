#include "file/folder_walk.h"

#include <algorithm>

namespace quorkit {

FolderWalk::FolderWalk(Files& files, String folder) : files_(files) {
    pending_.push_back({std::move(folder), {}, 0, false});
}

bool FolderWalk::next() {
    if (pending_.empty()) return false;
    std::reverse(pending_.begin() + static_cast<std::ptrdiff_t>(noted_), pending_.end());
    Folder folder = std::move(pending_.back());
    pending_.pop_back();
    noted_ = pending_.size();
    path_.resize(folder.depth);
    path_.push_back(std::move(folder));
    return true;
}

void FolderWalk::descendTo(const FindData& entry) {
    const bool link = (entry.attributes & kReparsePoint) != 0;
    Folder folder{
        this->folder() + entry.name + u'\\', {}, path_.size(), link || path_.back().behindLink};
    if (folder.behindLink && leadsRound(folder)) return;
    pending_.push_back(std::move(folder));
}

bool FolderWalk::leadsRound(Folder& folder) {
    if (!findTarget(folder)) return true;
    return std::ranges::any_of(path_, [&](Folder& around) {
        return findTarget(around) && around.target == folder.target;
    });
}

bool FolderWalk::findTarget(Folder& folder) const {
    if (folder.target) return true;
    String target;
    if (files_.GetFinalPathNameA(folder.name, target) != kSuccess) return false;
    // One folder has one name, also where the system keeps the separator at the end.
    target.erase(target.find_last_not_of(u"\\/") + 1);
    folder.target = std::move(target);
    return true;
}

}  // namespace quorkit
