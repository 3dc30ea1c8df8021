// Attributes, folders and their entries in memory.
#include "memory/memory_state.h"

namespace quorkit {

using memory::Entry;
using memory::Place;

namespace {

/// `target` is the target of a link, or the entry itself.
std::uint32_t attributesOf(const Entry& entry, const Entry& target) {
    std::uint32_t attributes = target.item->attributes;
    if (target.kind == Entry::Folder) attributes |= kDirectory;
    if (entry.kind == Entry::Link) attributes |= kReparsePoint;
    return attributes == 0 ? std::uint32_t{kNormal} : attributes;
}

}  // namespace

ErrorCode MemoryFolders::GetFileAttributesA(const String& name, std::uint32_t& attributes) {
    const std::lock_guard guard(state_.mutex);
    Place link;
    Place target;
    if (const ErrorCode code = state_.tree.find(name, target)) return code;
    if (target.entry == nullptr) return kFileNotFound;
    state_.tree.find(name, link, {.followLast = false});
    attributes = attributesOf(*link.entry, *target.entry);
    return kSuccess;
}

ErrorCode MemoryFolders::CreateDirectoryA(const String& name) {
    const std::lock_guard guard(state_.mutex);
    Place place;
    if (const ErrorCode code = state_.tree.find(name, place, {.followLast = false})) return code;
    if (place.entry != nullptr) return kFileExists;
    if (place.around->readOnly()) return kAccessDenied;
    state_.tree.add(place, Entry::Folder);
    return kSuccess;
}

ErrorCode MemoryFolders::FirstEntry(const String& folder, FindDetail detail, Handle& search,
                                    FindData& entry) {
    const std::lock_guard guard(state_.mutex);
    Place place;
    if (const ErrorCode code = state_.tree.find(folder, place)) return code;
    if (place.entry == nullptr || place.entry->kind != Entry::Folder) return kPathNotFound;

    MemoryFiles::State::Search found;
    const auto note = [&](const String& name, const Entry& one, const Entry& target) {
        FindData data{name, attributesOf(one, target), 0};
        if (detail != FindDetail::Attributes) data.attributes &= kDirectory | kReparsePoint;
        if (detail != FindDetail::Names) data.lastWrite = target.item->lastWrite;
        found.entries.push_back(std::move(data));
    };
    if (place.around != nullptr) {
        note(u".", *place.entry, *place.entry);
        note(u"..", *place.around, *place.around);
    }
    for (const Entry* one : state_.tree.entriesOf(place.entry->id)) {
        Place target;
        const bool leads = one->kind == Entry::Link &&
                           state_.tree.find(place.name + u'\\' + one->name, target) == kSuccess &&
                           target.entry != nullptr;
        note(one->name, *one, leads ? *target.entry : *one);
    }
    if (found.entries.empty()) return kFileNotFound;
    entry = found.entries[found.next++];
    search = Handle(state_.nextHandle++);
    state_.searches[std::intptr_t(search)] = std::move(found);
    return kSuccess;
}

ErrorCode MemoryFolders::NextEntry(Handle search, FindData& entry) {
    const std::lock_guard guard(state_.mutex);
    const auto found = state_.searches.find(std::intptr_t(search));
    if (found == state_.searches.end()) return kInvalidHandle;
    MemoryFiles::State::Search& under = found->second;
    if (under.next == under.entries.size()) return kNoMoreFiles;
    entry = under.entries[under.next++];
    return kSuccess;
}

void MemoryFolders::EndListing(Handle search) {
    const std::lock_guard guard(state_.mutex);
    state_.searches.erase(std::intptr_t(search));
}

}  // namespace quorkit
