// Files on Windows, by their UTF-16 names. Locks are named mutexes made from the file's full name:
// the kernel gives them back when their process dies, and no handle on the file stands in the way
// of replacing it.
#include "native/files.h"

#include <windows.h>

#include <algorithm>
#include <string>

namespace quorkit {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

const wchar_t* wide(const String& name) {
    return reinterpret_cast<const wchar_t*>(name.c_str());
}

bool validName(const String& name) {
    return !name.empty() && name.find(u'\0') == String::npos;
}

ErrorCode lastError() {
    switch (const DWORD code = ::GetLastError(); code) {
        case ERROR_SUCCESS:
            return kGeneralFailure;
        case ERROR_HANDLE_DISK_FULL:
            return kDiskFull;
        case ERROR_ALREADY_EXISTS:
            return kFileExists;
        default:
            return static_cast<ErrorCode>(code);
    }
}

ErrorCode resultOf(BOOL done) {
    return done ? kSuccess : lastError();
}

/// Behind a Handle: an open file, or a held mutex.
struct Opened {
    HANDLE handle;
    bool lock;
};

Opened& opened(Handle handle) {
    return *reinterpret_cast<Opened*>(handle);
}

Handle handOut(HANDLE handle, bool lock) {
    return Handle(reinterpret_cast<std::intptr_t>(new Opened{handle, lock}));
}

/// The name that asking `ask` for a name into a buffer gives; empty when it fails.
template <class Ask>
String askForName(Ask ask) {
    String buffer(MAX_PATH, u'\0');
    for (;;) {
        const DWORD length =
            ask(reinterpret_cast<wchar_t*>(buffer.data()), static_cast<DWORD>(buffer.size()));
        if (length <= buffer.size()) {
            buffer.resize(length);
            return buffer;
        }
        buffer.resize(length);
    }
}

String fullName(const String& name) {
    return askForName([&](wchar_t* buffer, DWORD size) {
        return ::GetFullPathNameW(wide(name), size, buffer, nullptr);
    });
}

/// The name of an existing file or folder when every link is followed; empty when there is none.
String finalName(const String& name) {
    const HANDLE file = ::CreateFileW(wide(name), 0, kShareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    String target = askForName([&](wchar_t* buffer, DWORD size) {
        return ::GetFinalPathNameByHandleW(file, buffer, size, FILE_NAME_NORMALIZED);
    });
    ::CloseHandle(file);
    return target;
}

/// One mutex for one file, whoever asks for it and however the name is spelled.
std::wstring mutexName(const String& name) {
    String key = fullName(name);
    ::CharLowerBuffW(reinterpret_cast<wchar_t*>(key.data()), static_cast<DWORD>(key.size()));
    std::uint64_t hash = 14695981039346656037u;  // FNV-1a, 64 bits
    for (const char16_t unit : key) hash = (hash ^ unit) * 1099511628211u;
    return L"Global\\quorkit-" + std::to_wstring(hash);
}

/// Other programs hold a file open for moments (readers, virus scanners); wait for them a while.
template <class Call>
BOOL whileInUse(Call call) {
    constexpr int kTries = 2000;
    for (int tries = 1;; ++tries) {
        if (call()) return TRUE;
        const DWORD code = ::GetLastError();
        const bool inUse = code == ERROR_SHARING_VIOLATION || code == ERROR_ACCESS_DENIED;
        if (!inUse || tries == kTries) return FALSE;
        ::Sleep(1);
    }
}

/// Gives `to` the attributes and the access rights of `from`, as far as the system allows it.
void copyRights(const String& from, const String& to) {
    ::SetFileAttributesW(wide(to), ::GetFileAttributesW(wide(from)));
    DWORD size = 0;
    ::GetFileSecurityW(wide(from), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::string rights(size, '\0');
    if (::GetFileSecurityW(wide(from), DACL_SECURITY_INFORMATION, rights.data(), size, &size))
        ::SetFileSecurityW(wide(to), DACL_SECURITY_INFORMATION, rights.data());
}

}  // namespace

ErrorCode NativeFiles::CreateFileA(const String& name, FileAccess access, Handle& handle) {
    if (!validName(name)) return kInvalidName;
    const bool read = access == FileAccess::Read;
    const HANDLE file =
        ::CreateFileW(wide(name), read ? GENERIC_READ : GENERIC_WRITE, kShareAll, nullptr,
                      read ? OPEN_EXISTING : CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return lastError();
    if (::GetFileType(file) != FILE_TYPE_DISK) {  // NUL, CON and their like
        ::CloseHandle(file);
        return kAccessDenied;
    }
    handle = handOut(file, false);
    return kSuccess;
}

ErrorCode NativeFiles::GetFileSizeEx(Handle handle, std::uint64_t& size) {
    LARGE_INTEGER result = {};
    if (!::GetFileSizeEx(opened(handle).handle, &result)) return lastError();
    size = static_cast<std::uint64_t>(result.QuadPart);
    return kSuccess;
}

ErrorCode NativeFiles::ReadFile(Handle handle, char* buffer, std::size_t capacity,
                                std::size_t& count) {
    const auto wanted = static_cast<DWORD>(std::min<std::size_t>(capacity, 1u << 30));
    DWORD got = 0;
    if (!::ReadFile(opened(handle).handle, buffer, wanted, &got, nullptr)) return lastError();
    count = got;
    return kSuccess;
}

ErrorCode NativeFiles::WriteFile(Handle handle, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1u << 30));
        DWORD written = 0;
        if (!::WriteFile(opened(handle).handle, bytes.data(), wanted, &written, nullptr))
            return lastError();
        bytes.remove_prefix(written);
    }
    return kSuccess;
}

ErrorCode NativeFiles::FlushFileBuffers(Handle handle) {
    return resultOf(::FlushFileBuffers(opened(handle).handle));
}

ErrorCode NativeFiles::CloseHandle(Handle handle) {
    const Opened closing = opened(handle);
    delete &opened(handle);
    if (closing.lock) ::ReleaseMutex(closing.handle);
    return resultOf(::CloseHandle(closing.handle));
}

ErrorCode NativeFiles::GetFinalPathNameA(const String& name, String& target) {
    if (!validName(name)) return kInvalidName;
    target = finalName(name);
    if (!target.empty()) return kSuccess;
    // The file is not there, maybe only for the moment in which it is replaced. Its name must be
    // the same as when it is, or two programs would lock two names.
    target = fullName(name);
    const std::size_t last = target.find_last_of(u'\\') + 1;
    String folder = last == 0 ? String() : finalName(target.substr(0, last));
    if (!folder.empty()) {
        if (!folder.ends_with(u'\\')) folder += u'\\';
        target = folder + target.substr(last);
    }
    return target.empty() ? lastError() : kSuccess;
}

ErrorCode NativeFiles::LockFileA(const String& name, Handle& handle, Wait) {
    if (!validName(name)) return kInvalidName;
    const DWORD attributes = ::GetFileAttributesW(wide(name));
    constexpr DWORD kNotWritable = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & kNotWritable) != 0)
        return kAccessDenied;
    if (attributes == INVALID_FILE_ATTRIBUTES && ::GetLastError() == ERROR_PATH_NOT_FOUND)
        return kPathNotFound;

    // Users who share the file share the mutex, so everyone may open it.
    SECURITY_DESCRIPTOR everyone = {};
    ::InitializeSecurityDescriptor(&everyone, SECURITY_DESCRIPTOR_REVISION);
    ::SetSecurityDescriptorDacl(&everyone, TRUE, nullptr, FALSE);
    SECURITY_ATTRIBUTES security = {sizeof security, &everyone, FALSE};
    const HANDLE mutex = ::CreateMutexW(&security, FALSE, mutexName(name).c_str());
    if (mutex == nullptr) return lastError();
    const DWORD outcome = ::WaitForSingleObject(mutex, INFINITE);
    if (outcome != WAIT_OBJECT_0 && outcome != WAIT_ABANDONED) {
        const ErrorCode code = lastError();
        ::CloseHandle(mutex);
        return code;
    }
    handle = handOut(mutex, true);
    return kSuccess;
}

ErrorCode NativeFiles::ReplaceFileA(const String& name, const String& replacement) {
    if (!validName(name) || !validName(replacement)) return kInvalidName;
    if (::GetFileAttributesW(wide(name)) != INVALID_FILE_ATTRIBUTES) copyRights(name, replacement);
    // One rename: the system's own call for replacing files leaves a moment without the name.
    return resultOf(whileInUse([&] {
        return ::MoveFileExW(wide(replacement), wide(name),
                             MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    }));
}

/// The system writes folders through by itself.
ErrorCode NativeFiles::FlushFolderOf(const String& name) {
    return validName(name) ? kSuccess : kInvalidName;
}

ErrorCode NativeFiles::DeleteFileA(const String& name) {
    if (!validName(name)) return kInvalidName;
    return resultOf(::DeleteFileW(wide(name)));
}

ErrorCode NativeFiles::SetFilePointerEx(Handle, std::uint64_t) {
    return kGeneralFailure;
}
ErrorCode NativeFiles::SetEndOfFile(Handle) {
    return kGeneralFailure;
}
ErrorCode NativeFiles::GetFileAttributesA(const String&, std::uint32_t&) {
    return kGeneralFailure;
}
ErrorCode NativeFiles::CreateDirectoryA(const String&) {
    return kGeneralFailure;
}
ErrorCode NativeFiles::FindFirstFileA(const String&, FindDetail, Handle&, FindData&) {
    return kGeneralFailure;
}
ErrorCode NativeFiles::FindNextFileA(Handle, FindData&) {
    return kGeneralFailure;
}
void NativeFiles::FindClose(Handle) {}

}  // namespace quorkit
