#include "memory/memory_tree.h"

#include <algorithm>

#include "base/letter_case.h"
#include "base/name_parts.h"

namespace quorkit::memory {
namespace {

constexpr int kMostLinks = 40;
constexpr std::size_t kLongestName = 32767;

/// `here` is the current folder. As on Windows, ".." is resolved before any look-up.
ErrorCode pathOf(const String& name, Path here, Path& path) {
    if (name.empty() || name.size() > kLongestName || name.find(u'\0') != String::npos)
        return kInvalidName;
    const base::NameParts parts = base::partsOf(name);
    auto component = parts.components.begin();
    switch (parts.start) {
        case base::NameParts::Here:
            break;
        case base::NameParts::Root:
            here.resize(1);
            break;
        case base::NameParts::Drive:
        case base::NameParts::HereOnDrive:
            here = {String{parts.drive, u':'}};
            break;
        case base::NameParts::Network:
            if (parts.components.size() < 2) return kInvalidName;
            here = {u"\\\\"};
            here[0].append(component[0]).append(u"\\").append(component[1]);
            component += 2;
            break;
    }
    for (; component != parts.components.end(); ++component) {
        if (*component == u".") continue;
        if (*component != u"..")
            here.emplace_back(*component);
        else if (here.size() > 1)
            here.pop_back();
    }
    path = std::move(here);
    return kSuccess;
}

String joined(const Path& path) {
    String name = path[0];
    if (path.size() == 1) name += u'\\';
    for (std::size_t i = 1; i < path.size(); ++i) name.append(u"\\").append(path[i]);
    return name;
}

/// Replaces the link `path[i]` in the path by its target.
ErrorCode followLink(Path& path, std::size_t i, const String& target) {
    const auto link = path.begin() + static_cast<std::ptrdiff_t>(i);
    Path followed;
    if (const ErrorCode code = pathOf(target, Path(path.begin(), link), followed)) return code;
    followed.insert(followed.end(), link + 1, path.end());
    path = std::move(followed);
    return kSuccess;
}

}  // namespace

Tree::Tree() {
    add({0, u"c:"}, u"C:", Entry::Folder);
}

Entry& Tree::add(const Key& key, const String& name, Entry::Kind kind) {
    Entry& entry = entries_[key];
    entry.kind = kind;
    entry.name = name;
    entry.id = ++last_;
    if (kind != Entry::Folder) entry.item->attributes = kArchive;
    return entry;
}

Entry& Tree::add(Place& place, Entry::Kind kind) {
    place.entry = &add(place.key, place.name.substr(place.name.find_last_of(u'\\') + 1), kind);
    return *place.entry;
}

Entry* Tree::at(const Key& key) {
    const auto found = entries_.find(key);
    return found == entries_.end() ? nullptr : &found->second;
}

ErrorCode Tree::walk(Path& path, Links links, Place& place, std::size_t& reached) {
    place = {};
    for (reached = 0; reached < path.size(); ++reached) {
        const bool last = reached + 1 == path.size();
        place.around = place.entry;
        place.key = {place.around == nullptr ? 0 : place.around->id, base::toLower(path[reached])};
        place.entry = at(place.key);
        if (place.entry == nullptr) {
            if (last && reached != 0) continue;
            if (!links.makeFolders) return kPathNotFound;
            place.entry = &add(place.key, path[reached], Entry::Folder);
        }
        if (place.entry->kind == Entry::Link && (!last || links.followLast)) return kSuccess;
        if (place.entry->kind != Entry::Folder && !last) return kPathNotFound;
        path[reached] = place.entry->name;
    }
    return kSuccess;
}

ErrorCode Tree::find(const String& name, Place& place, Links links) {
    Path path;
    if (const ErrorCode code = pathOf(name, {u"C:"}, path)) return code;
    const bool folder = base::partsOf(name).folder;
    links.followLast |= folder;
    for (int followed = 0; followed <= kMostLinks; ++followed) {
        std::size_t reached = 0;
        if (const ErrorCode code = walk(path, links, place, reached)) return code;
        if (reached == path.size()) {
            place.name = joined(path);
            place.folder = folder;
            const bool file = place.entry != nullptr && place.entry->kind != Entry::Folder;
            return folder && file ? kPathNotFound : kSuccess;
        }
        if (const ErrorCode code = followLink(path, reached, place.entry->target)) return code;
    }
    return kInvalidName;
}

std::vector<const Entry*> Tree::entriesOf(Id folder) const {
    std::vector<const Entry*> entries;
    for (auto i = entries_.lower_bound({folder, {}});
         i != entries_.end() && i->first.first == folder; ++i)
        entries.push_back(&i->second);
    std::ranges::sort(entries, {}, &Entry::id);
    return entries;
}

}  // namespace quorkit::memory
