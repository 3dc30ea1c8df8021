#include "file/folder_walk.h"

#include <algorithm>

namespace quorkit::file {
namespace {

constexpr StringView kSeparators = u"\\/";

/// The target of a name, with a separator at its end.
std::optional<String> targetOf(Files& files, const String& name) {
    String target;
    if (files.FinalName(name, target) != kSuccess || target.empty()) return std::nullopt;
    if (kSeparators.find(target.back()) == StringView::npos)
        target += target[target.find_last_of(kSeparators)];
    return target;
}

}  // namespace

bool FolderWalk::next() {
    if (pending_.empty()) return false;
    std::reverse(pending_.begin() + static_cast<std::ptrdiff_t>(noted_), pending_.end());
    folder_ = std::move(pending_.back());
    target_.reset();
    pending_.pop_back();
    noted_ = pending_.size();
    return true;
}

void FolderWalk::descendTo(const FindData& entry) {
    String folder = folder_ + entry.name + u'\\';
    if ((entry.attributes & kReparsePoint) == 0 || mayFollow(folder))
        pending_.push_back(std::move(folder));
}

bool FolderWalk::mayFollow(const String& link) {
    const std::optional<String> target = targetOf(files_, link);
    if (!target_) target_ = targetOf(files_, folder_);
    const bool leadsRound = target && target_ && target_->starts_with(*target);
    return target && target_ && !leadsRound && followed_.insert(*target).second;
}

}  // namespace quorkit::file
