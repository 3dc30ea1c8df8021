#include "base/registry_names.h"

#include <algorithm>

namespace quorkit::base {

bool canNameKey(StringView name) {
    return !name.empty() && name.size() <= kLongestKeyName &&
           name.find_first_of(StringView(u"\\\0", 2)) == StringView::npos;
}

bool canNameValue(StringView name) {
    return name.size() <= kLongestValueName && name.find(u'\0') == StringView::npos;
}

ErrorCode splitKeyPath(StringView path, std::vector<String>& names) {
    if (path.starts_with(u'\\')) return kBadPathName;
    while (!path.empty()) {
        const StringView name = path.substr(0, path.find(u'\\'));
        path.remove_prefix(std::min(path.size(), name.size() + 1));
        if (name.empty()) continue;
        if (!canNameKey(name) || names.size() == kDeepestKey) return kInvalidParameter;
        names.emplace_back(name);
    }
    return kSuccess;
}

}  // namespace quorkit::base
