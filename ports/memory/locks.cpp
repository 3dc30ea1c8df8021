// Changing a file whole: locks and replacement in memory.
#include <chrono>

#include "memory/state.h"

namespace quorkit {

using memory::Entry;
using memory::Place;

ErrorCode MemoryFiles::CloseHandle(Handle handle) {
    const std::lock_guard guard(state_->mutex);
    const auto found = state_->opened.find(std::intptr_t(handle));
    if (found == state_->opened.end()) return kInvalidHandle;
    const State::Opened& closing = found->second;
    if (closing.item == nullptr)
        state_->locked.erase(closing.key);
    else if (closing.access == FileAccess::Append)
        state_->adding.extract(closing.key);
    state_->opened.erase(found);
    state_->released.notify_all();
    return kSuccess;
}

ErrorCode MemoryFiles::GetFinalPathNameA(const String& name, String& target) {
    const std::lock_guard guard(state_->mutex);
    Place place;
    if (const ErrorCode code = state_->tree.find(name, place)) return code;
    target = place.name;
    return kSuccess;
}

ErrorCode MemoryFiles::LockFileA(const String& name, Handle& handle, Wait wait) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(100);
    std::unique_lock guard(state_->mutex);
    Place place;
    ErrorCode code = state_->findFile(name, place);
    while (code == kSuccess &&
           (state_->locked.contains(place.key) || state_->adding.contains(place.key))) {
        if (wait == Wait::Forever)
            state_->released.wait(guard);
        else if (state_->released.wait_until(guard, end) == std::cv_status::timeout)
            return kLockViolation;
        code = state_->findFile(name, place);
    }
    if (code != kSuccess) return code;
    if (place.around->readOnly() || (place.entry != nullptr && place.entry->readOnly()))
        return kAccessDenied;
    state_->locked.insert(place.key);
    handle = state_->handOut({nullptr, FileAccess::Read, place.key});
    return kSuccess;
}

ErrorCode MemoryFiles::ReplaceFileA(const String& name, const String& replacement, Wait) {
    const std::lock_guard guard(state_->mutex);
    Place from;
    Place to;
    if (const ErrorCode code = state_->findFile(replacement, from)) return code;
    if (const ErrorCode code = state_->findFile(name, to)) return code;
    if (from.entry == nullptr) return kFileNotFound;
    if (from.around->readOnly() || to.around->readOnly()) return kAccessDenied;
    if (from.key == to.key) return kSuccess;
    const std::shared_ptr<memory::Item> item = from.entry->item;
    state_->tree.remove(from.key);
    if (to.entry == nullptr)
        state_->tree.add(to, Entry::File);
    else
        item->attributes = to.entry->item->attributes;
    to.entry->item = item;
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
