// The content of files in memory.
#include <algorithm>
#include <cstring>

#include "lines/torn_line.h"
#include "memory/memory_state.h"

namespace quorkit {

using memory::Entry;
using memory::Place;

MemoryFiles::State::Opened* MemoryFiles::State::find(Handle handle) {
    const auto found = opened.find(std::intptr_t(handle));
    return found == opened.end() || found->second.lock ? nullptr : &found->second;
}

Handle MemoryFiles::State::toHandle(Opened file) {
    const std::intptr_t number = nextHandle++;
    opened[number] = std::move(file);
    return Handle(number);
}

ErrorCode MemoryFiles::State::findFile(const String& name, Place& place) {
    if (const ErrorCode code = tree.find(name, place)) return code;
    if (place.entry == nullptr) return place.folder ? kPathNotFound : kSuccess;
    return place.entry->kind == Entry::Folder ? kAccessDenied : kSuccess;
}

ErrorCode MemoryFiles::Open(const String& name, FileAccess access, Handle& handle) {
    std::unique_lock guard(state_->mutex);
    Place place;
    ErrorCode code = state_->findFile(name, place);
    if (code == kSuccess && access == FileAccess::Append) {
        state_->waitToAdd(guard, memory::Key(place.key));
        code = state_->findFile(name, place);  // the file may have changed meanwhile
    }
    if (code != kSuccess) return code;
    if (access == FileAccess::CreateNew) {
        Place asSpelled;  // a link is in the way, whatever its target
        state_->tree.find(name, asSpelled, {.followLast = false});
        if (asSpelled.entry != nullptr) return kFileExists;
    }
    if (place.entry == nullptr) {
        if (access == FileAccess::Read) return kFileNotFound;
        if (place.around->readOnly()) return kAccessDenied;
        state_->tree.add(place, Entry::File);
    }
    if (isForAdding(access) && place.entry->readOnly()) return kAccessDenied;
    if (access == FileAccess::Append) state_->adding.insert(place.key);
    handle = state_->toHandle({place.entry->item, access, place.key});
    return kSuccess;
}

ErrorCode MemoryFiles::GetFileSizeEx(Handle handle, std::uint64_t& size) {
    const std::lock_guard guard(state_->mutex);
    const State::Opened* file = state_->find(handle);
    if (file == nullptr) return kInvalidHandle;
    size = file->item->content.size();
    return kSuccess;
}

ErrorCode MemoryFiles::SetFilePointerEx(Handle handle, std::uint64_t position) {
    const std::lock_guard guard(state_->mutex);
    State::Opened* file = state_->find(handle);
    if (file == nullptr) return kInvalidHandle;
    file->position = position;
    return kSuccess;
}

ErrorCode MemoryFiles::ReadFile(Handle handle, char* buffer, std::size_t capacity,
                                std::size_t& count) {
    const std::lock_guard guard(state_->mutex);
    State::Opened* file = state_->find(handle);
    if (file == nullptr) return kInvalidHandle;
    if (file->access == FileAccess::CreateNew) return kAccessDenied;
    const std::string& content = file->item->content;
    count = 0;
    if (file->position < content.size()) {
        const auto start = static_cast<std::size_t>(file->position);
        count = std::min(capacity, content.size() - start);
        std::memcpy(buffer, content.data() + start, count);
    }
    file->position += count;
    return kSuccess;
}

void MemoryFiles::State::waitToAdd(std::unique_lock<std::mutex>& guard, const memory::Key& key) {
    using namespace std::chrono_literals;
    const auto most = givenUp.contains(key) ? 0ms : longest(Wait::Patiently);
    if (released.wait_for(guard, most, [&] { return !locked.contains(key); }))
        givenUp.erase(key);
    else
        givenUp.insert(key);
}

ErrorCode MemoryFiles::State::mayChange(std::unique_lock<std::mutex>& guard, const Opened& file) {
    if (!isForAdding(file.access)) return kAccessDenied;
    if (file.access == FileAccess::AppendYielding) waitToAdd(guard, file.key);
    const Entry* now = tree.at(file.key);
    return now != nullptr && now->item == file.item ? kSuccess : kFileReplaced;
}

ErrorCode MemoryFiles::WriteFile(Handle handle, std::string_view bytes) {
    const std::lock_guard guard(state_->mutex);
    const State::Opened* file = state_->find(handle);
    if (file == nullptr) return kInvalidHandle;
    if (file->access != FileAccess::CreateNew) return kAccessDenied;
    const std::size_t count = std::min(bytes.size(), state_->freeSpace);
    file->item->content.append(bytes.substr(0, count));
    state_->freeSpace -= count;
    return count == bytes.size() ? kSuccess : kDiskFull;
}

ErrorCode MemoryFiles::Append(Handle handle, std::string_view bytes, std::string_view lineBreak) {
    std::unique_lock guard(state_->mutex);
    const State::Opened* file = state_->find(handle);
    if (file == nullptr) return kInvalidHandle;
    if (const ErrorCode code = state_->mayChange(guard, *file)) return code;
    const std::string& content = file->item->content;
    std::string begun;
    if (!lineBreak.empty() && !lines::endAt(content.size(), content, lines::feedOf(lineBreak)))
        bytes = begun = lines::parting(content.size(), lineBreak).append(bytes);
    if (bytes.size() > state_->freeSpace) return kDiskFull;
    file->item->content.append(bytes);
    state_->freeSpace -= bytes.size();
    return kSuccess;
}

ErrorCode MemoryFiles::EmptyFile(Handle handle) {
    std::unique_lock guard(state_->mutex);
    const State::Opened* file = state_->find(handle);
    if (file == nullptr) return kInvalidHandle;
    if (const ErrorCode code = state_->mayChange(guard, *file)) return code;
    file->item->content.clear();
    return kSuccess;
}

ErrorCode MemoryFiles::FlushFileBuffers(Handle handle) {
    const std::lock_guard guard(state_->mutex);
    return state_->find(handle) == nullptr ? kInvalidHandle : kSuccess;
}

}  // namespace quorkit
