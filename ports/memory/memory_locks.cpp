// Locks and replacement of files in memory.
#include <chrono>

#include "memory/memory_state.h"

namespace quorkit {

using memory::Entry;
using memory::Place;

MemoryFiles::State::Opened* MemoryFiles::State::findLock(Handle handle) {
    const auto found = opened.find(std::intptr_t(handle));
    return found == opened.end() || !found->second.lock ? nullptr : &found->second;
}

ErrorCode MemoryFiles::State::findLocked(const Opened& lock, Place& place) {
    if (const ErrorCode code = findFile(lock.name, place)) return code;
    const memory::Item* now = place.entry == nullptr ? nullptr : place.entry->item.get();
    const bool same = now == lock.item.get() && (!now || now->content.size() == lock.size);
    return same ? kSuccess : kFileReplaced;
}

ErrorCode MemoryFiles::CloseHandle(Handle handle) {
    const std::lock_guard guard(state_->mutex);
    const auto found = state_->opened.find(std::intptr_t(handle));
    if (found == state_->opened.end()) return kInvalidHandle;
    const State::Opened& closing = found->second;
    if (closing.lock)
        state_->locked.erase(closing.key);
    else if (closing.access == FileAccess::Append)
        state_->adding.extract(closing.key);
    state_->opened.erase(found);
    state_->released.notify_all();
    return kSuccess;
}

ErrorCode MemoryFiles::FinalName(const String& name, String& target) {
    const std::lock_guard guard(state_->mutex);
    Place place;
    if (const ErrorCode code = state_->tree.find(name, place)) return code;
    target = place.name;
    return kSuccess;
}

ErrorCode MemoryFiles::LockForChange(const String& name, Handle& handle, Wait wait) {
    const auto end = std::chrono::steady_clock::now() + longest(wait);
    std::unique_lock guard(state_->mutex);
    Place place;
    ErrorCode code = state_->findFile(name, place);
    while (code == kSuccess &&
           (state_->locked.contains(place.key) || state_->adding.contains(place.key))) {
        if (state_->released.wait_until(guard, end) == std::cv_status::timeout)
            return kLockViolation;
        code = state_->findFile(name, place);
    }
    if (code != kSuccess) return code;
    const Entry* entry = place.entry;
    if (entry == nullptr ? place.around->readOnly() : entry->readOnly()) return kAccessDenied;
    state_->locked.insert(place.key);
    State::Opened lock{entry == nullptr ? nullptr : entry->item, FileAccess::Read, place.key};
    lock.lock = true;
    lock.name = place.name;
    lock.size = entry == nullptr ? 0 : entry->item->content.size();
    handle = state_->toHandle(std::move(lock));
    return kSuccess;
}

ErrorCode MemoryFiles::CreateReplacement(Handle lock, const String& beside, Handle& file) {
    const std::lock_guard guard(state_->mutex);
    Place place;
    if (state_->findLock(lock) == nullptr) return kInvalidHandle;
    if (const ErrorCode code = state_->findFile(beside, place)) return code;
    if (place.around->readOnly()) return kAccessDenied;
    State::Opened made{std::make_shared<memory::Item>(), FileAccess::CreateNew, place.key};
    file = state_->toHandle(std::move(made));
    return kSuccess;
}

ErrorCode MemoryFiles::Replace(Handle lock, Handle file, Wait) {
    const std::lock_guard guard(state_->mutex);
    const State::Opened* held = state_->findLock(lock);
    const State::Opened* made = state_->find(file);
    if (held == nullptr || made == nullptr) return kInvalidHandle;
    Place to;
    if (const ErrorCode code = state_->findLocked(*held, to)) return code;
    if (to.around->readOnly()) return kAccessDenied;
    if (to.entry == nullptr)
        state_->tree.add(to, Entry::File);
    else
        made->item->attributes = to.entry->item->attributes;
    to.entry->item = made->item;
    if (made->key != to.key) state_->tree.remove(made->key);  // somebody has left it at that name
    return kSuccess;
}

ErrorCode MemoryFiles::WriteInPlace(Handle lock, std::string_view content) {
    const std::lock_guard guard(state_->mutex);
    State::Opened* held = state_->findLock(lock);
    if (held == nullptr) return kInvalidHandle;
    Place place;
    if (const ErrorCode code = state_->findLocked(*held, place)) return code;
    if (place.entry == nullptr) return kFileNotFound;
    std::string& old = held->item->content;
    const std::size_t more = content.size() > old.size() ? content.size() - old.size() : 0;
    if (more > state_->freeSpace) return kDiskFull;
    state_->freeSpace -= more;
    old = content;
    held->size = content.size();
    return kSuccess;
}

ErrorCode MemoryFiles::FlushFolderOf(const String& name) {
    const std::lock_guard guard(state_->mutex);
    Place place;
    return state_->tree.find(name, place, {.followLast = false});
}

ErrorCode MemoryFiles::DeleteFileA(const String& name) {
    const std::lock_guard guard(state_->mutex);
    Place place;
    if (const ErrorCode code = state_->tree.find(name, place, {.followLast = false})) return code;
    if (place.entry == nullptr) return kFileNotFound;
    if (place.entry->kind == Entry::Folder || place.entry->readOnly() || place.around->readOnly())
        return kAccessDenied;
    state_->tree.remove(place.key);
    return kSuccess;
}

}  // namespace quorkit
