#include <quorkit/ports/faults.h>

namespace quorkit {

void FaultyFiles::answer(std::size_t call, ErrorCode code, std::string_view operation) {
    call_ = call;
    code_ = code;
    operation_ = operation;
    calls_ = 0;
}

bool FaultyFiles::due(std::string_view operation) {
    if (!operation.starts_with(operation_)) return false;
    ++calls_;
    return call_ == 0 || calls_ == call_;
}

ErrorCode FaultyFiles::CreateFileA(const String& name, FileAccess access, Handle& handle) {
    if (due("CreateFileA")) return code_;
    const ErrorCode code = inner_.CreateFileA(name, access, handle);
    const bool adds = access == FileAccess::Append || access == FileAccess::AppendYielding;
    if (code == kSuccess && adds) adding_.insert(handle);
    return code;
}
ErrorCode FaultyFiles::GetFileSizeEx(Handle handle, std::uint64_t& size) {
    return due("GetFileSizeEx") ? code_ : inner_.GetFileSizeEx(handle, size);
}
ErrorCode FaultyFiles::SetFilePointerEx(Handle handle, std::uint64_t position) {
    return due("SetFilePointerEx") ? code_ : inner_.SetFilePointerEx(handle, position);
}
ErrorCode FaultyFiles::ReadFile(Handle handle, char* buffer, std::size_t capacity,
                                std::size_t& count) {
    return due("ReadFile") ? code_ : inner_.ReadFile(handle, buffer, capacity, count);
}
ErrorCode FaultyFiles::WriteFile(Handle handle, std::string_view bytes,
                                 std::string_view lineBreak) {
    if (!due("WriteFile")) return inner_.WriteFile(handle, bytes, lineBreak);
    if (code_ != kSuccess && !adding_.contains(handle))
        inner_.WriteFile(handle, bytes.substr(0, bytes.size() / 2));
    return code_;
}
ErrorCode FaultyFiles::SetEndOfFile(Handle handle) {
    return due("SetEndOfFile") ? code_ : inner_.SetEndOfFile(handle);
}
ErrorCode FaultyFiles::FlushFileBuffers(Handle handle) {
    return due("FlushFileBuffers") ? code_ : inner_.FlushFileBuffers(handle);
}
ErrorCode FaultyFiles::CloseHandle(Handle handle) {
    adding_.erase(handle);
    const ErrorCode code = inner_.CloseHandle(handle);
    return due("CloseHandle") ? code_ : code;
}
ErrorCode FaultyFiles::GetFinalPathNameA(const String& name, String& target) {
    return due("GetFinalPathNameA") ? code_ : inner_.GetFinalPathNameA(name, target);
}
ErrorCode FaultyFiles::LockFileA(const String& name, Handle& handle, Wait wait) {
    return due("LockFileA") ? code_ : inner_.LockFileA(name, handle, wait);
}
ErrorCode FaultyFiles::CreateReplacement(Handle lock, const String& beside, Handle& file) {
    return due("CreateReplacement") ? code_ : inner_.CreateReplacement(lock, beside, file);
}
ErrorCode FaultyFiles::ReplaceFileA(Handle lock, Handle file, Wait wait) {
    return due("ReplaceFileA") ? code_ : inner_.ReplaceFileA(lock, file, wait);
}
ErrorCode FaultyFiles::WriteInPlace(Handle lock, std::string_view content) {
    if (!due("WriteInPlace")) return inner_.WriteInPlace(lock, content);
    if (code_ != kSuccess) inner_.WriteInPlace(lock, content.substr(0, content.size() / 2));
    return code_;
}
ErrorCode FaultyFiles::FlushFolderOf(const String& name) {
    return due("FlushFolderOf") ? code_ : inner_.FlushFolderOf(name);
}
ErrorCode FaultyFiles::DeleteFileA(const String& name) {
    return due("DeleteFileA") ? code_ : inner_.DeleteFileA(name);
}
ErrorCode FaultyFiles::GetFileAttributesA(const String& name, std::uint32_t& attributes) {
    return due("GetFileAttributesA") ? code_ : inner_.GetFileAttributesA(name, attributes);
}
ErrorCode FaultyFiles::CreateDirectoryA(const String& name) {
    return due("CreateDirectoryA") ? code_ : inner_.CreateDirectoryA(name);
}
ErrorCode FaultyFiles::FindFirstFileA(const String& folder, FindDetail detail, Handle& search,
                                      FindData& entry) {
    return due("FindFirstFileA") ? code_ : inner_.FindFirstFileA(folder, detail, search, entry);
}
ErrorCode FaultyFiles::FindNextFileA(Handle search, FindData& entry) {
    return due("FindNextFileA") ? code_ : inner_.FindNextFileA(search, entry);
}
void FaultyFiles::FindClose(Handle search) {
    inner_.FindClose(search);
}

}  // namespace quorkit
