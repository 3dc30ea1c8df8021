// Locks and replacement of files on Windows.
#include <algorithm>
#include <string>
#include <utility>

#include "native/native_files.h"
#include "win32/win32_calls.h"
#include "win32/win32_names.h"
#include "win32/win32_opened.h"

namespace quorkit::native {
namespace {

/// Repeats a call for a while, because readers and virus scanners hold files open for moments.
template <class Call>
BOOL whileInUse(Wait wait, Call call) {
    const ULONGLONG end = ::GetTickCount64() + static_cast<ULONGLONG>(longest(wait).count());
    for (;;) {
        if (call()) return TRUE;
        const DWORD code = ::GetLastError();
        const bool inUse = code == ERROR_SHARING_VIOLATION || code == ERROR_ACCESS_DENIED;
        if (!inUse || ::GetTickCount64() > end) return FALSE;
        ::Sleep(1);
    }
}

/// Copies attributes and access rights of `from` to `to`, as far as the system allows.
void copyRights(const String& from, const String& to) {
    ::SetFileAttributesW(wide(to), ::GetFileAttributesW(wide(from)));
    DWORD size = 0;
    ::GetFileSecurityW(wide(from), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::string rights(size, '\0');
    if (::GetFileSecurityW(wide(from), DACL_SECURITY_INFORMATION, rights.data(), size, &size))
        ::SetFileSecurityW(wide(to), DACL_SECURITY_INFORMATION, rights.data());
}

}  // namespace

ErrorCode NativeFiles::FinalName(const String& name, String& target) {
    if (!validName(name)) return kInvalidName;
    target = finalName(name);
    return target.empty() ? lastError() : kSuccess;
}

Look Look::at(const String& name) {
    WIN32_FILE_ATTRIBUTE_DATA about = {};
    if (!::GetFileAttributesExW(wide(name), GetFileExInfoStandard, &about)) return {};
    return {true, (std::uint64_t{about.nFileSizeHigh} << 32) | about.nFileSizeLow,
            timeOf(about.ftLastWriteTime)};
}

ErrorCode NativeFiles::LockForChange(const String& name, Handle& handle, Wait wait) {
    using std::chrono::steady_clock;
    if (!validName(name)) return kInvalidName;
    auto lock = std::make_unique<Opened>();
    lock->lock = true;
    lock->name = finalName(name);
    if (const ErrorCode code = mayBeWritten(lock->name)) return code;
    lock->mutex = std::make_unique<FileMutex>(lock->name);
    if (const ErrorCode code = lock->mutex->status()) return code;
    const auto end = steady_clock::now() + longest(wait);
    for (;;) {
        const auto rest = std::chrono::duration_cast<std::chrono::milliseconds>(
            std::max(end - steady_clock::now(), steady_clock::duration::zero()));
        ErrorCode code = lock->mutex->enter(rest);
        if (code != kSuccess) return code;
        // A mark found here belongs to somebody who adds, or to a lock that this same thread holds.
        if (!lock->mutex->marked()) {
            code = lock->mutex->mark();
            if (code != kSuccess) {
                lock->mutex->leave();
                return code;
            }
            lock->look = Look::at(lock->name);
            handle = toHandle(std::move(lock));
            return kSuccess;
        }
        lock->mutex->leave();
        if (rest.count() == 0) return kLockViolation;
        ::Sleep(1);
    }
}

ErrorCode NativeFiles::CreateReplacement(Handle, const String& beside, Handle& file) {
    if (!validName(beside)) return kInvalidName;
    constexpr int mostNumbers = 100;
    auto made = std::make_unique<Opened>();
    made->access = FileAccess::CreateNew;
    for (int number = 0; number <= mostNumbers; ++number) {
        const std::string digits = "-" + std::to_string(number);
        made->name = number == 0 ? beside : beside + String(digits.begin(), digits.end());
        // It was left by a process that died, or somebody still uses it.
        ::DeleteFileW(wide(made->name));
        made->file = ::CreateFileW(wide(made->name), GENERIC_WRITE, kShareAll, nullptr, CREATE_NEW,
                                   FILE_ATTRIBUTE_NORMAL, nullptr);
        made->forWork = made->file != INVALID_HANDLE_VALUE;
        if (made->forWork) {
            file = toHandle(std::move(made));
            return kSuccess;
        }
        if (::GetLastError() != ERROR_FILE_EXISTS) break;
    }
    return lastError();
}

ErrorCode NativeFiles::Replace(Handle lock, Handle file, Wait wait) {
    const Opened& held = opened(lock);
    Opened& made = opened(file);
    if (Look::at(held.name) != held.look) return kFileReplaced;
    if (held.look.there) copyRights(held.name, made.name);
    if (!::CloseHandle(std::exchange(made.file, nullptr))) return lastError();
    // This is one rename; the system's call for replacing files leaves a moment without the name.
    const DWORD how = MOVEFILE_WRITE_THROUGH | (held.look.there ? MOVEFILE_REPLACE_EXISTING : 0);
    if (!whileInUse(wait, [&] { return ::MoveFileExW(wide(made.name), wide(held.name), how); }))
        return ::GetLastError() == ERROR_ALREADY_EXISTS ? kFileReplaced : lastError();
    made.forWork = false;
    return kSuccess;
}

ErrorCode NativeFiles::WriteInPlace(Handle lock, std::string_view content) {
    Opened& held = opened(lock);
    if (Look::at(held.name) != held.look) return kFileReplaced;
    HANDLE file = ::CreateFileW(wide(held.name), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return lastError();
    // Setting the size first makes sure that a full disk leaves the old content.
    ErrorCode code = kSuccess;
    if (content.size() > held.look.size) code = cutAt(file, content.size());
    if (code == kSuccess) code = writeAll(file, content, nullptr);
    if (code == kSuccess) code = cutAt(file, content.size());
    if (code == kSuccess) code = resultOf(::FlushFileBuffers(file));
    ::CloseHandle(file);
    held.look = Look::at(held.name);
    return code;
}

/// The system writes changes of folders through by itself.
ErrorCode NativeFiles::FlushFolderOf(const String& name) {
    return validName(name) ? kSuccess : kInvalidName;
}

ErrorCode NativeFiles::DeleteFileA(const String& name) {
    if (!validName(name)) return kInvalidName;
    return resultOf(::DeleteFileW(wide(name)));
}

}  // namespace quorkit::native
