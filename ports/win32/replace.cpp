// Changing a file whole on Windows: locks and replacement.
#include <string>

#include "native/files.h"
#include "win32/calls.h"
#include "win32/names.h"
#include "win32/opened.h"

namespace quorkit {

using namespace win32;

namespace {

/// Other programs hold a file open for moments (readers, virus scanners); wait for them a while.
template <class Call>
BOOL whileInUse(Wait wait, Call call) {
    const ULONGLONG end = ::GetTickCount64() + (wait == Wait::Forever ? 30'000 : 100);
    for (;;) {
        if (call()) return TRUE;
        const DWORD code = ::GetLastError();
        const bool inUse = code == ERROR_SHARING_VIOLATION || code == ERROR_ACCESS_DENIED;
        if (!inUse || ::GetTickCount64() > end) return FALSE;
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

ErrorCode NativeFiles::GetFinalPathNameA(const String& name, String& target) {
    if (!validName(name)) return kInvalidName;
    target = finalName(name);
    return target.empty() ? lastError() : kSuccess;
}

ErrorCode NativeFiles::LockFileA(const String& name, Handle& handle, Wait wait) {
    if (!validName(name)) return kInvalidName;
    const String target = finalName(name);
    if (const ErrorCode code = mayBeWritten(target)) return code;
    auto lock = std::make_unique<Opened>();
    lock->lock = true;
    lock->gate = std::make_unique<Gate>(target);
    if (const ErrorCode code = lock->gate->status()) return code;
    const ULONGLONG end = ::GetTickCount64() + 100;
    for (;;) {
        const ULONGLONG now = ::GetTickCount64();
        const DWORD rest = now < end ? static_cast<DWORD>(end - now) : 0;
        ErrorCode code = lock->gate->enter(wait == Wait::Forever ? INFINITE : rest);
        if (code != kSuccess) return code;
        // A mark inside is of somebody who adds, or of a lock that this very thread holds.
        if (!lock->gate->marked()) {
            code = lock->gate->mark();
            if (code == kSuccess) {
                handle = handOut(std::move(lock));
                return kSuccess;
            }
            lock->gate->leave();
            return code;
        }
        lock->gate->leave();
        if (wait == Wait::Briefly && rest == 0) return kLockViolation;
        ::Sleep(1);
    }
}

ErrorCode NativeFiles::ReplaceFileA(const String& name, const String& replacement, Wait wait) {
    if (!validName(name) || !validName(replacement)) return kInvalidName;
    if (::GetFileAttributesW(wide(name)) != INVALID_FILE_ATTRIBUTES) copyRights(name, replacement);
    // One rename: the system's own call for replacing files leaves a moment without the name.
    return resultOf(whileInUse(wait, [&] {
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

}  // namespace quorkit
