#include <quorkit/ports/memory.h>

#include <algorithm>
#include <cstring>

namespace quorkit {
namespace {

String folderOf(const String& name) {
    const auto end = name.find_last_of(u"/\\");
    return end == String::npos ? String() : name.substr(0, end);
}

bool validName(const String& name) {
    return !name.empty() && name.find(u'\0') == String::npos;
}

}  // namespace

void MemoryFiles::addFolder(const String& name) {
    const std::lock_guard guard(mutex_);
    folders_.insert(name);
}

void MemoryFiles::put(const String& name, std::string content) {
    const std::lock_guard guard(mutex_);
    files_[name] = std::make_shared<File>(File{std::move(content)});
}

std::optional<std::string> MemoryFiles::content(const String& name) const {
    const std::lock_guard guard(mutex_);
    const auto found = files_.find(name);
    if (found == files_.end()) return std::nullopt;
    return found->second->content;
}

void MemoryFiles::setReadOnly(const String& name, bool readOnly) {
    const std::lock_guard guard(mutex_);
    files_.at(name)->readOnly = readOnly;
}

void MemoryFiles::addLink(const String& name, const String& target) {
    const std::lock_guard guard(mutex_);
    links_[name] = target;
}

void MemoryFiles::setFreeSpace(std::size_t bytes) {
    const std::lock_guard guard(mutex_);
    freeSpace_ = bytes;
}

bool MemoryFiles::folderExists(const String& name) const {
    return folders_.contains(folderOf(name));
}

ErrorCode MemoryFiles::CreateFileA(const String& name, FileAccess access, Handle& handle) {
    String target;
    if (const ErrorCode code = GetFinalPathNameA(name, target)) return code;
    const std::lock_guard guard(mutex_);
    if (folders_.contains(target)) return kAccessDenied;
    if (!folderExists(target)) return kPathNotFound;
    auto found = files_.find(target);
    if (access == FileAccess::CreateNew) {
        if (found != files_.end()) return kFileExists;
        found = files_.emplace(target, std::make_shared<File>()).first;
    }
    if (found == files_.end()) return kFileNotFound;
    handle = Handle(nextHandle_++);
    opened_[std::intptr_t(handle)] = {found->second, 0, {}};
    return kSuccess;
}

std::string* MemoryFiles::contentOf(Handle handle, std::size_t*& position) {
    const auto found = opened_.find(std::intptr_t(handle));
    if (found == opened_.end() || found->second.file == nullptr) return nullptr;
    position = &found->second.position;
    return &found->second.file->content;
}

ErrorCode MemoryFiles::GetFileSizeEx(Handle handle, std::uint64_t& size) {
    const std::lock_guard guard(mutex_);
    std::size_t* position = nullptr;
    const std::string* content = contentOf(handle, position);
    if (content == nullptr) return kInvalidHandle;
    size = content->size();
    return kSuccess;
}

ErrorCode MemoryFiles::ReadFile(Handle handle, char* buffer, std::size_t capacity,
                                std::size_t& count) {
    const std::lock_guard guard(mutex_);
    std::size_t* position = nullptr;
    const std::string* content = contentOf(handle, position);
    if (content == nullptr) return kInvalidHandle;
    count = std::min(capacity, content->size() - *position);
    std::memcpy(buffer, content->data() + *position, count);
    *position += count;
    return kSuccess;
}

ErrorCode MemoryFiles::WriteFile(Handle handle, std::string_view bytes) {
    const std::lock_guard guard(mutex_);
    std::size_t* position = nullptr;
    std::string* content = contentOf(handle, position);
    if (content == nullptr) return kInvalidHandle;
    const std::size_t fitting = std::min(bytes.size(), freeSpace_);
    content->append(bytes.substr(0, fitting));
    freeSpace_ -= fitting;
    return fitting == bytes.size() ? kSuccess : kDiskFull;
}

ErrorCode MemoryFiles::FlushFileBuffers(Handle handle) {
    const std::lock_guard guard(mutex_);
    return opened_.contains(std::intptr_t(handle)) ? kSuccess : kInvalidHandle;
}

ErrorCode MemoryFiles::CloseHandle(Handle handle) {
    const std::lock_guard guard(mutex_);
    const auto found = opened_.find(std::intptr_t(handle));
    if (found == opened_.end()) return kInvalidHandle;
    if (locked_.erase(found->second.lockedName) != 0) unlocked_.notify_all();
    opened_.erase(found);
    return kSuccess;
}

ErrorCode MemoryFiles::GetFinalPathNameA(const String& name, String& target) {
    if (!validName(name)) return kInvalidName;
    const std::lock_guard guard(mutex_);
    String current = name;
    for (std::size_t followed = 0; followed <= links_.size(); ++followed) {
        const auto link = links_.find(current);
        if (link == links_.end()) {
            target = current;
            return kSuccess;
        }
        current = link->second;
    }
    return kInvalidName;
}

ErrorCode MemoryFiles::LockFileA(const String& name, Handle& handle, Wait) {
    String target;
    if (const ErrorCode code = GetFinalPathNameA(name, target)) return code;
    std::unique_lock guard(mutex_);
    if (folders_.contains(target)) return kAccessDenied;
    if (!folderExists(target)) return kPathNotFound;
    unlocked_.wait(guard, [&] { return !locked_.contains(target); });
    const auto found = files_.find(target);
    if (found != files_.end() && found->second->readOnly) return kAccessDenied;
    locked_.insert(target);
    handle = Handle(nextHandle_++);
    opened_[std::intptr_t(handle)] = {nullptr, 0, target};
    return kSuccess;
}

ErrorCode MemoryFiles::ReplaceFileA(const String& name, const String& replacement) {
    const std::lock_guard guard(mutex_);
    const auto found = files_.find(replacement);
    if (found == files_.end()) return kFileNotFound;
    files_[name] = found->second;
    files_.erase(found);
    return kSuccess;
}

ErrorCode MemoryFiles::FlushFolderOf(const String& name) {
    const std::lock_guard guard(mutex_);
    return folderExists(name) ? kSuccess : kPathNotFound;
}

ErrorCode MemoryFiles::DeleteFileA(const String& name) {
    const std::lock_guard guard(mutex_);
    return files_.erase(name) != 0 ? kSuccess : kFileNotFound;
}

ErrorCode MemoryFiles::SetFilePointerEx(Handle, std::uint64_t) {
    return kGeneralFailure;
}
ErrorCode MemoryFiles::SetEndOfFile(Handle) {
    return kGeneralFailure;
}
ErrorCode MemoryFiles::GetFileAttributesA(const String&, std::uint32_t&) {
    return kGeneralFailure;
}
ErrorCode MemoryFiles::CreateDirectoryA(const String&) {
    return kGeneralFailure;
}
ErrorCode MemoryFiles::FindFirstFileA(const String&, FindDetail, Handle&, FindData&) {
    return kGeneralFailure;
}
ErrorCode MemoryFiles::FindNextFileA(Handle, FindData&) {
    return kGeneralFailure;
}
void MemoryFiles::FindClose(Handle) {}

}  // namespace quorkit
