// Files on Linux. A name is UTF-8 on disk, exactly as spelled. Locks are flock locks on the file
// itself, so they die with the process and leave nothing behind. A file or folder without any write
// permission counts as read-only even for the superuser.
#include "native/files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>

namespace quorkit {
namespace {

namespace fs = std::filesystem;

ErrorCode lastError() {
    switch (errno) {
        case ENOENT:
            return kFileNotFound;
        case ENOTDIR:
            return kPathNotFound;
        case EMFILE:
        case ENFILE:
            return kTooManyOpenFiles;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ETXTBSY:
            return kAccessDenied;
        case EBADF:
            return kInvalidHandle;
        case EEXIST:
            return kFileExists;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return kDiskFull;
        case ELOOP:
        case ENAMETOOLONG:
        case EINVAL:
            return kInvalidName;
        default:
            return kGeneralFailure;
    }
}

ErrorCode resultOf(int returned) {
    return returned == 0 ? kSuccess : lastError();
}

/// The name as the system stores it; false for one that no file can have.
bool toPath(const String& name, fs::path& path) {
    if (name.empty() || name.find(u'\0') != String::npos) return false;
    try {
        path = fs::path(name);
        return true;
    } catch (const std::exception&) {  // a surrogate without its partner
        return false;
    }
}

fs::path folderOf(const fs::path& path) {
    const fs::path folder = path.parent_path();
    return folder.empty() ? fs::path(".") : folder;
}

template <class Call>
auto unlessInterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}

/// Behind a Handle. A lock knows the file it made, to take it away again if nobody filled it.
struct Opened {
    int descriptor = -1;
    std::string madeByLock;
};

Opened& opened(Handle handle) {
    return *reinterpret_cast<Opened*>(handle);
}

Handle handOut(int descriptor, std::string madeByLock = {}) {
    return Handle(reinterpret_cast<std::intptr_t>(new Opened{descriptor, std::move(madeByLock)}));
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
    if (descriptor == -1) return lastError();
    if (fstat(descriptor, &about) == 0 && S_ISREG(about.st_mode)) return kSuccess;
    close(descriptor);
    return kAccessDenied;
}

}  // namespace

ErrorCode NativeFiles::CreateFileA(const String& name, FileAccess access, Handle& handle) {
    fs::path path;
    if (!toPath(name, path)) return kInvalidName;
    int descriptor = -1;
    if (access == FileAccess::Read) {
        struct stat about = {};
        if (const ErrorCode code = openRegular(path, O_RDONLY, descriptor, about)) return code;
    } else {
        constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
        descriptor = unlessInterrupted([&] { return open(path.c_str(), flags, 0600); });
        if (descriptor == -1) return lastError();
    }
    handle = handOut(descriptor);
    return kSuccess;
}

ErrorCode NativeFiles::GetFileSizeEx(Handle handle, std::uint64_t& size) {
    struct stat about = {};
    if (fstat(opened(handle).descriptor, &about) != 0) return lastError();
    size = static_cast<std::uint64_t>(about.st_size);
    return kSuccess;
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
    while (!bytes.empty()) {
        const ssize_t result = unlessInterrupted(
            [&] { return write(opened(handle).descriptor, bytes.data(), bytes.size()); });
        if (result == -1) return lastError();
        bytes.remove_prefix(static_cast<std::size_t>(result));
    }
    return kSuccess;
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
    fs::path path;
    if (!toPath(name, path)) return kInvalidName;
    constexpr int kMostLinks = 40;  // as many as the kernel follows
    for (int followed = 0; followed <= kMostLinks; ++followed) {
        std::error_code error;
        const fs::path link = fs::read_symlink(path, error);
        if (error) {
            try {
                target = path.u16string();
                return kSuccess;
            } catch (const std::exception&) {  // a link to a name that is not UTF-8
                return kInvalidName;
            }
        }
        path = path.parent_path() / link;
    }
    return kInvalidName;
}

ErrorCode NativeFiles::LockFileA(const String& name, Handle& handle) {
    fs::path path;
    if (!toPath(name, path)) return kInvalidName;
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
        Handle lock = handOut(descriptor, made ? path.native() : std::string());
        if (!writableByAnyone(about)) code = kAccessDenied;
        if (code == kSuccess)
            code = resultOf(unlessInterrupted([&] { return flock(descriptor, LOCK_EX); }));
        if (code == kSuccess && leadsTo(path, about)) {
            handle = lock;
            return kSuccess;
        }
        // While this process waited, the holder replaced or removed the file it had locked.
        CloseHandle(lock);
        if (code != kSuccess) return code;
    }
}

ErrorCode NativeFiles::ReplaceFileA(const String& name, const String& replacement) {
    fs::path to;
    fs::path from;
    if (!toPath(name, to) || !toPath(replacement, from)) return kInvalidName;
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
    fs::path path;
    if (!toPath(name, path)) return kInvalidName;
    const int descriptor = open(folderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor == -1) return lastError();
    const ErrorCode code = resultOf(fsync(descriptor));
    close(descriptor);
    return code;
}

ErrorCode NativeFiles::DeleteFileA(const String& name) {
    fs::path path;
    if (!toPath(name, path)) return kInvalidName;
    return resultOf(unlink(path.c_str()));
}

}  // namespace quorkit
