#include <quorkit/ports/faults.h>

namespace quorkit {

ErrorCode FaultyFiles::CreateFileA(const String& name, FileAccess access, Handle& handle) {
    if (due("CreateFileA")) return code();
    const ErrorCode opened = inner_.CreateFileA(name, access, handle);
    if (opened == kSuccess && isForAdding(access)) adding_.insert(handle);
    return opened;
}
ErrorCode FaultyFiles::GetFileSizeEx(Handle handle, std::uint64_t& size) {
    return due("GetFileSizeEx") ? code() : inner_.GetFileSizeEx(handle, size);
}
ErrorCode FaultyFiles::SetFilePointerEx(Handle handle, std::uint64_t position) {
    return due("SetFilePointerEx") ? code() : inner_.SetFilePointerEx(handle, position);
}
ErrorCode FaultyFiles::ReadFile(Handle handle, char* buffer, std::size_t capacity,
                                std::size_t& count) {
    return due("ReadFile") ? code() : inner_.ReadFile(handle, buffer, capacity, count);
}
ErrorCode FaultyFiles::WriteFile(Handle handle, std::string_view bytes,
                                 std::string_view lineBreak) {
    if (!due("WriteFile")) return inner_.WriteFile(handle, bytes, lineBreak);
    if (!done() && !adding_.contains(handle))
        inner_.WriteFile(handle, bytes.substr(0, bytes.size() / 2));
    return code();
}
ErrorCode FaultyFiles::SetEndOfFile(Handle handle) {
    return due("SetEndOfFile") ? code() : inner_.SetEndOfFile(handle);
}
ErrorCode FaultyFiles::FlushFileBuffers(Handle handle) {
    return due("FlushFileBuffers") ? code() : inner_.FlushFileBuffers(handle);
}
ErrorCode FaultyFiles::CloseHandle(Handle handle) {
    adding_.erase(handle);
    const ErrorCode closed = inner_.CloseHandle(handle);
    return due("CloseHandle") ? code() : closed;
}
ErrorCode FaultyFiles::GetFinalPathNameA(const String& name, String& target) {
    return due("GetFinalPathNameA") ? code() : inner_.GetFinalPathNameA(name, target);
}
ErrorCode FaultyFiles::LockFileA(const String& name, Handle& handle, Wait wait) {
    return due("LockFileA") ? code() : inner_.LockFileA(name, handle, wait);
}
ErrorCode FaultyFiles::CreateReplacement(Handle lock, const String& beside, Handle& file) {
    return due("CreateReplacement") ? code() : inner_.CreateReplacement(lock, beside, file);
}
ErrorCode FaultyFiles::ReplaceFileA(Handle lock, Handle file, Wait wait) {
    return due("ReplaceFileA") ? code() : inner_.ReplaceFileA(lock, file, wait);
}
ErrorCode FaultyFiles::WriteInPlace(Handle lock, std::string_view content) {
    if (!due("WriteInPlace")) return inner_.WriteInPlace(lock, content);
    if (!done() && code() != kFileReplaced)
        inner_.WriteInPlace(lock, content.substr(0, content.size() / 2));
    return code();
}
ErrorCode FaultyFiles::FlushFolderOf(const String& name) {
    return due("FlushFolderOf") ? code() : inner_.FlushFolderOf(name);
}
ErrorCode FaultyFiles::DeleteFileA(const String& name) {
    return due("DeleteFileA") ? code() : inner_.DeleteFileA(name);
}
ErrorCode FaultyFiles::GetFileAttributesA(const String& name, std::uint32_t& attributes) {
    return due("GetFileAttributesA") ? code() : inner_.GetFileAttributesA(name, attributes);
}
ErrorCode FaultyFiles::CreateDirectoryA(const String& name) {
    return due("CreateDirectoryA") ? code() : inner_.CreateDirectoryA(name);
}
ErrorCode FaultyFiles::FindFirstFileA(const String& folder, FindDetail detail, Handle& search,
                                      FindData& entry) {
    return due("FindFirstFileA") ? code() : inner_.FindFirstFileA(folder, detail, search, entry);
}
ErrorCode FaultyFiles::FindNextFileA(Handle search, FindData& entry) {
    return due("FindNextFileA") ? code() : inner_.FindNextFileA(search, entry);
}
void FaultyFiles::FindClose(Handle search) {
    inner_.FindClose(search);
}

}  // namespace quorkit
