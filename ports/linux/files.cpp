// Files on Linux. Locks are flock locks on the file itself, so they die with the process and leave
// nothing behind. A file or folder without any write permission counts as read-only even for the
// superuser.
#include "native/files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include "linux/calls.h"
#include "linux/name_text.h"
#include "linux/names.h"

namespace quorkit {
namespace {

namespace fs = std::filesystem;
using disk::folderOf;
using disk::lastError;
using disk::lastErrorAt;
using disk::pathOf;
using disk::resultOf;
using disk::unlessInterrupted;

/// Behind a Handle: a file, or a lock. A lock knows the file it made, to take it away again if
/// nobody filled it.
struct Opened {
    int descriptor = -1;
    FileAccess access = FileAccess::Read;
    nlink_t names = 0;  ///< of a file opened for adding
    std::string madeByLock;
};

Opened& opened(Handle handle) {
    return *reinterpret_cast<Opened*>(handle);
}

Handle handOut(Opened file) {
    return Handle(reinterpret_cast<std::intptr_t>(new Opened(std::move(file))));
}

bool sameFile(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool leadsTo(const std::string& path, const struct stat& file) {
    struct stat now = {};
    return stat(path.c_str(), &now) == 0 && sameFile(now, file);
}

bool writableByAnyone(const struct stat& file) {
    return (file.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
}

constexpr int kQuietly = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;  // never waits for a pipe or a device

/// Opens a regular file and tells about it.
ErrorCode openRegular(const std::string& path, int flags, int& descriptor, struct stat& about) {
    descriptor = unlessInterrupted([&] { return open(path.c_str(), flags | kQuietly, 0666); });
    if (descriptor == -1) return lastErrorAt(path);
    if (fstat(descriptor, &about) == 0 && S_ISREG(about.st_mode)) return kSuccess;
    close(descriptor);
    return kAccessDenied;
}

ErrorCode lock(int descriptor, int kind) {
    return resultOf(unlessInterrupted([&] { return flock(descriptor, kind); }));
}

/// As `lock`, but not for longer than a moment. The kernel has no wait of that kind.
ErrorCode lockBriefly(int descriptor, int kind) {
    constexpr auto step = std::chrono::microseconds(100);
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(100);
    while (flock(descriptor, kind | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) return lastError();
        if (std::chrono::steady_clock::now() > end) return kLockViolation;
        std::this_thread::sleep_for(step);
    }
    return kSuccess;
}

/// Whether a file for adding, locked, still has the names it was opened with. Files are replaced
/// under the lock alone, which takes one from them.
bool keepsItsNames(const Opened& file) {
    struct stat about = {};
    return fstat(file.descriptor, &about) == 0 && about.st_nlink == file.names;
}

/// Adds `bytes` in one piece. The kernel does that in one call, unless the disk is full: then it
/// may take a part, which is taken back.
ErrorCode add(int descriptor, std::string_view bytes) {
    const ssize_t result =
        unlessInterrupted([&] { return write(descriptor, bytes.data(), bytes.size()); });
    if (result == -1) return lastError();
    if (static_cast<std::size_t>(result) == bytes.size()) return kSuccess;
    const off_t end = lseek(descriptor, 0, SEEK_CUR);
    struct stat about = {};
    const bool last = fstat(descriptor, &about) == 0 && about.st_size == end;
    if (last && ftruncate(descriptor, end - result) != 0) return lastError();
    return kDiskFull;
}

ErrorCode openToRead(const std::string& path, Opened& file) {
    struct stat about = {};
    return openRegular(path, O_RDONLY, file.descriptor, about);
}

ErrorCode openNew(const std::string& path, Opened& file) {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    file.descriptor = unlessInterrupted([&] { return open(path.c_str(), flags, 0600); });
    return file.descriptor == -1 ? lastErrorAt(path) : kSuccess;
}

ErrorCode openToAdd(const std::string& path, Opened& file) {
    for (;;) {
        constexpr int flags = O_APPEND | O_CREAT | kQuietly;
        const auto tryToOpen = [&](int access) {
            return unlessInterrupted([&] { return open(path.c_str(), flags | access, 0666); });
        };
        file.descriptor = tryToOpen(O_RDWR);
        if (file.descriptor == -1 && errno == EACCES) file.descriptor = tryToOpen(O_WRONLY);
        if (file.descriptor == -1) return errno == ENOENT ? kPathNotFound : lastError();
        // Where a file system has no locks, nobody replaces its files under one.
        if (file.access == FileAccess::Append) lock(file.descriptor, LOCK_SH);

        struct stat about = {};
        ErrorCode code = resultOf(fstat(file.descriptor, &about));
        if (code == kSuccess && !(S_ISREG(about.st_mode) && writableByAnyone(about)))
            code = kAccessDenied;
        // It may have been replaced before it was locked.
        const bool named = about.st_nlink == 1 || leadsTo(path, about);
        file.names = about.st_nlink;
        if (code == kSuccess && named) return kSuccess;
        close(file.descriptor);
        if (code != kSuccess) return code;
    }
}

}  // namespace

ErrorCode NativeFiles::CreateFileA(const String& name, FileAccess access, Handle& handle) {
    std::string path;
    if (const ErrorCode code = pathOf(name, path)) return code;
    Opened file;
    file.access = access;
    ErrorCode code = kSuccess;
    switch (access) {
        case FileAccess::Read:
            code = openToRead(path, file);
            break;
        case FileAccess::CreateNew:
            code = openNew(path, file);
            break;
        case FileAccess::Append:
        case FileAccess::AppendYielding:
            code = openToAdd(path, file);
            break;
    }
    if (code == kSuccess) handle = handOut(std::move(file));
    return code;
}

ErrorCode NativeFiles::GetFileSizeEx(Handle handle, std::uint64_t& size) {
    struct stat about = {};
    if (fstat(opened(handle).descriptor, &about) != 0) return lastError();
    size = static_cast<std::uint64_t>(about.st_size);
    return kSuccess;
}

ErrorCode NativeFiles::SetFilePointerEx(Handle handle, std::uint64_t position) {
    if (position > static_cast<std::uint64_t>(INT64_MAX)) return kInvalidHandle;
    const auto offset = static_cast<off_t>(position);
    return lseek(opened(handle).descriptor, offset, SEEK_SET) == -1 ? lastError() : kSuccess;
}

ErrorCode NativeFiles::ReadFile(Handle handle, char* buffer, std::size_t capacity,
                                std::size_t& count) {
    const ssize_t result =
        unlessInterrupted([&] { return read(opened(handle).descriptor, buffer, capacity); });
    if (result == -1) return lastError();
    count = static_cast<std::size_t>(result);
    return kSuccess;
}

ErrorCode NativeFiles::WriteFile(Handle handle, std::string_view bytes) {
    const Opened& file = opened(handle);
    if (file.access == FileAccess::Append) return add(file.descriptor, bytes);
    if (file.access == FileAccess::AppendYielding) {
        lock(file.descriptor, LOCK_SH);
        const ErrorCode code = keepsItsNames(file) ? add(file.descriptor, bytes) : kFileReplaced;
        lock(file.descriptor, LOCK_UN);
        return code;
    }
    while (!bytes.empty()) {
        const ssize_t result =
            unlessInterrupted([&] { return write(file.descriptor, bytes.data(), bytes.size()); });
        if (result == -1) return lastError();
        bytes.remove_prefix(static_cast<std::size_t>(result));
    }
    return kSuccess;
}

ErrorCode NativeFiles::SetEndOfFile(Handle handle) {
    return resultOf(ftruncate(opened(handle).descriptor, 0));
}

ErrorCode NativeFiles::FlushFileBuffers(Handle handle) {
    return resultOf(fsync(opened(handle).descriptor));
}

ErrorCode NativeFiles::CloseHandle(Handle handle) {
    const Opened file = std::move(opened(handle));
    delete &opened(handle);
    if (!file.madeByLock.empty()) {
        struct stat about = {};
        if (fstat(file.descriptor, &about) == 0 && about.st_size == 0 &&
            leadsTo(file.madeByLock, about))
            unlink(file.madeByLock.c_str());
    }
    return resultOf(close(file.descriptor));
}

ErrorCode NativeFiles::GetFinalPathNameA(const String& name, String& target) {
    std::string path;
    if (const ErrorCode code = pathOf(name, path)) return code;
    // The path itself is a name in the root of C:, whatever drive it is on, and needs no mount
    // table.
    std::error_code error;
    const fs::path existing = fs::canonical(path, error);
    if (!error) {
        target = disk::textOf(existing.native());
        return kSuccess;
    }
    constexpr int kMostLinks = 40;  // as many as the kernel follows
    for (int followed = 0; followed <= kMostLinks; ++followed) {
        const fs::path link = fs::read_symlink(path, error);
        if (error) {
            const fs::path folder = fs::canonical(folderOf(path), error);
            if (!error) path = folder / fs::path(path).filename();
            target = disk::textOf(path);
            return kSuccess;
        }
        path = fs::path(path).parent_path() / link;
    }
    return kInvalidName;
}

ErrorCode NativeFiles::LockFileA(const String& name, Handle& handle, Wait wait) {
    std::string path;
    if (const ErrorCode code = pathOf(name, path)) return code;
    struct stat folder = {};
    if (stat(folderOf(path).c_str(), &folder) != 0)
        return errno == ENOENT ? kPathNotFound : lastError();
    if (!writableByAnyone(folder) || access(folderOf(path).c_str(), W_OK | X_OK) != 0)
        return kAccessDenied;
    for (;;) {
        int descriptor = -1;
        struct stat about = {};
        bool made = false;
        ErrorCode code = openRegular(path, O_RDWR, descriptor, about);
        if (code == kFileNotFound) {
            code = openRegular(path, O_RDWR | O_CREAT | O_EXCL, descriptor, about);
            if (code == kFileExists) continue;  // another process was quicker
            made = true;
        }
        if (code != kSuccess) return code;
        const Handle held = handOut({descriptor, FileAccess::Read, 0, made ? path : std::string()});
        if (!writableByAnyone(about)) code = kAccessDenied;
        if (code == kSuccess)
            code = wait == Wait::Forever ? lock(descriptor, LOCK_EX)
                                         : lockBriefly(descriptor, LOCK_EX);
        if (code == kSuccess && leadsTo(path, about)) {
            handle = held;
            return kSuccess;
        }
        // While this process waited, the holder replaced or removed the file it had locked.
        CloseHandle(held);
        if (code != kSuccess) return code;
    }
}

ErrorCode NativeFiles::ReplaceFileA(const String& name, const String& replacement) {
    std::string to;
    std::string from;
    if (const ErrorCode code = pathOf(name, to)) return code;
    if (const ErrorCode code = pathOf(replacement, from)) return code;
    struct stat old = {};
    if (stat(to.c_str(), &old) == 0) {
        struct stat mine = {};
        if (stat(from.c_str(), &mine) != 0) return lastError();
        const bool sameOwner = mine.st_uid == old.st_uid && mine.st_gid == old.st_gid;
        if (!sameOwner && chown(from.c_str(), old.st_uid, old.st_gid) != 0 &&
            mine.st_gid != old.st_gid && chown(from.c_str(), mine.st_uid, old.st_gid) != 0)
            return lastError();
        if (chmod(from.c_str(), old.st_mode & 07777) != 0) return lastError();
    } else if (errno != ENOENT) {
        return lastError();
    }
    return resultOf(rename(from.c_str(), to.c_str()));
}

ErrorCode NativeFiles::FlushFolderOf(const String& name) {
    std::string path;
    if (const ErrorCode code = pathOf(name, path)) return code;
    const int descriptor = open(folderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor == -1) return lastError();
    const ErrorCode code = resultOf(fsync(descriptor));
    close(descriptor);
    return code;
}

ErrorCode NativeFiles::DeleteFileA(const String& name) {
    std::string path;
    if (const ErrorCode code = pathOf(name, path)) return code;
    return unlink(path.c_str()) == 0 ? kSuccess : lastErrorAt(path);
}

}  // namespace quorkit
