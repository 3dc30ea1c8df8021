// Setting up files in memory.
#include <stdexcept>

#include "memory/memory_state.h"

namespace quorkit {

using memory::Entry;
using memory::Place;

namespace {

void must(bool possible) {
    if (!possible) throw std::invalid_argument("no such name can exist here");
}

}  // namespace

MemoryFiles::MemoryFiles() : state_(std::make_unique<State>()) {}
MemoryFiles::~MemoryFiles() = default;

Place MemoryFiles::State::mustFind(const String& name, memory::Tree::Links links) {
    Place place;
    must(tree.find(name, place, links) == kSuccess);
    must(links.makeFolders || place.entry != nullptr);
    return place;
}

void MemoryFiles::addFolder(const String& name) {
    const std::lock_guard guard(state_->mutex);
    Place place = state_->mustFind(name, {.makeFolders = true});
    if (place.entry == nullptr) state_->tree.add(place, Entry::Folder);
    must(place.entry->kind == Entry::Folder);
}

void MemoryFiles::put(const String& name, std::string content) {
    const std::lock_guard guard(state_->mutex);
    Place place = state_->mustFind(name, {.makeFolders = true});
    must(!place.folder && (place.entry == nullptr || place.entry->kind == Entry::File));
    if (place.entry == nullptr) state_->tree.add(place, Entry::File);
    place.entry->item =
        std::make_shared<memory::Item>(memory::Item{std::move(content), kArchive, memory::kStart});
}

void MemoryFiles::addLink(const String& name, const String& target) {
    const std::lock_guard guard(state_->mutex);
    Place place = state_->mustFind(name, {.followLast = false, .makeFolders = true});
    must(!place.folder && (place.entry == nullptr || place.entry->kind != Entry::Folder));
    if (place.entry != nullptr) state_->tree.remove(place.key);
    state_->tree.add(place, Entry::Link).target = target;
}

void MemoryFiles::setReadOnly(const String& name, bool readOnly) {
    const std::lock_guard guard(state_->mutex);
    std::uint32_t& attributes = state_->mustFind(name).entry->item->attributes;
    attributes = readOnly ? attributes | kReadOnly : attributes & ~kReadOnly;
}

void MemoryFiles::setAttributes(const String& name, std::uint32_t attributes) {
    const std::lock_guard guard(state_->mutex);
    state_->mustFind(name).entry->item->attributes =
        attributes & (kReadOnly | kHidden | kSystem | kArchive);
}

void MemoryFiles::setLastWrite(const String& name, FileTime time) {
    const std::lock_guard guard(state_->mutex);
    state_->mustFind(name).entry->item->lastWrite = time;
}

void MemoryFiles::setFreeSpace(std::size_t bytes) {
    const std::lock_guard guard(state_->mutex);
    state_->freeSpace = bytes;
}

std::optional<std::string> MemoryFiles::content(const String& name) const {
    const std::lock_guard guard(state_->mutex);
    Place place;
    if (state_->findFile(name, place) != kSuccess || place.entry == nullptr) return std::nullopt;
    return place.entry->item->content;
}

}  // namespace quorkit
