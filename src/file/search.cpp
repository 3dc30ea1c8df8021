#include "file/search.h"

#include "base/name_parts.h"

namespace quorkit::file {
namespace {

/// The position at which the pattern begins. A colon is a separator only behind a drive letter.
std::size_t patternIn(StringView name) {
    const std::size_t last = name.find_last_of(u"\\/");
    if (last != StringView::npos) return last + 1;
    return base::partsOf(name).start == base::NameParts::HereOnDrive ? 2 : 0;
}

}  // namespace

bool FolderEntries::next(FindData& entry) {
    if (status_ != kSuccess) return false;
    status_ = open_ ? folders_.NextEntry(search_, entry)
                    : folders_.FirstEntry(folder_, detail_, search_, entry);
    if (status_ == kSuccess) open_ = true;
    return status_ == kSuccess;
}

NameSearch::NameSearch(Folders& folders, StringView name, FindDetail detail)
    : NameSearch(folders, name, patternIn(name), detail) {}

NameSearch::NameSearch(Folders& folders, StringView name, std::size_t pattern, FindDetail detail)
    : entries_(folders, pattern == 0 ? String(u".") : String(name.substr(0, pattern)), detail),
      pattern_(name.substr(pattern)) {}

bool NameSearch::next(FindData& entry) {
    while (entries_.next(entry))
        if (pattern_.matches(entry.name)) return true;
    return false;
}

bool isSelfOrParent(StringView entryName) {
    return entryName == u"." || entryName == u"..";
}

}  // namespace quorkit::file
