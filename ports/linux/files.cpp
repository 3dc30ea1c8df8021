// The content of files on Linux.
#include "native/files.h"

#include <fcntl.h>
#include <unistd.h>

#include "linux/calls.h"
#include "linux/names.h"
#include "linux/opened.h"

namespace quorkit {
namespace {

using namespace disk;

/// Seconds by a clock that costs next to nothing to read.
std::time_t seconds() {
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return now.tv_sec;
}

/// A disk that was full took a part of what was to be added: takes it back, if nobody else has the
/// file open for adding, who might have added something behind it.
void takeBack(Opened& file, off_t count) {
    struct stat about = {};
    if (flock(file.descriptor, LOCK_EX | LOCK_NB) == 0 && fstat(file.descriptor, &about) == 0 &&
        about.st_size == lseek(file.descriptor, 0, SEEK_CUR))
        static_cast<void>(ftruncate(file.descriptor, about.st_size - count) == 0);
    if (file.access == FileAccess::Append) file.lock(LOCK_SH);
}

ErrorCode add(Opened& file, std::string_view bytes) {
    const ssize_t result =
        unlessInterrupted([&] { return write(file.descriptor, bytes.data(), bytes.size()); });
    if (result == -1) return lastError();
    if (static_cast<std::size_t>(result) == bytes.size()) return kSuccess;
    takeBack(file, result);
    return kDiskFull;
}

/// Runs `change` on a file for adding, unless its name leads elsewhere.
template <class Change>
ErrorCode whileNamed(Opened& file, Change change) {
    if (file.access == FileAccess::Append) {
        // Under its lock nobody replaces it. It may still be moved or deleted, and a look at the
        // name costs more than the change.
        const std::time_t now = seconds();
        if (now != file.lastLook && !file.keepsItsName()) return kFileReplaced;
        file.lastLook = now;
        return change();
    }
    // Where a file system has no locks, nobody replaces its files under one.
    file.lock(LOCK_SH);
    const ErrorCode code = file.keepsItsName() ? change() : kFileReplaced;
    file.unlock();
    return code;
}

ErrorCode openNew(Opened& file) {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    file.descriptor = unlessInterrupted([&] { return open(file.path.c_str(), flags, 0600); });
    return file.descriptor == -1 ? lastErrorAt(file.path) : kSuccess;
}

/// Opens for adding, without making what is there already: the system refuses that in folders
/// that everyone may write.
ErrorCode openOrMake(Opened& file, int access) {
    const ErrorCode code = file.openRegular(access | O_APPEND);
    return code == kFileNotFound ? file.openRegular(access | O_APPEND | O_CREAT) : code;
}

ErrorCode openToAdd(Opened& file) {
    for (;;) {
        ErrorCode code = openOrMake(file, O_RDWR);
        if (code == kAccessDenied) code = openOrMake(file, O_WRONLY);
        if (code != kSuccess) return code;
        if (!writableByAnyone(file.about)) return kAccessDenied;
        if (file.access == FileAccess::Append) file.lock(LOCK_SH);
        file.lastLook = seconds();
        if (file.keepsItsName()) return kSuccess;
        file.close();  // it was replaced before it was locked
    }
}

}  // namespace

ErrorCode NativeFiles::CreateFileA(const String& name, FileAccess access, Handle& handle) {
    auto file = std::make_unique<Opened>();
    if (const ErrorCode code = pathOf(name, file->path)) return code;
    file->access = access;
    ErrorCode code = kSuccess;
    switch (access) {
        case FileAccess::Read:
            code = file->openRegular(O_RDONLY);
            break;
        case FileAccess::CreateNew:
            code = openNew(*file);
            break;
        case FileAccess::Append:
        case FileAccess::AppendYielding:
            code = openToAdd(*file);
            break;
    }
    if (code == kSuccess) handle = handOut(std::move(file));
    return code;
}

ErrorCode NativeFiles::GetFileSizeEx(Handle handle, std::uint64_t& size) {
    struct stat about = {};
    if (fstat(openedOf(handle).descriptor, &about) != 0) return lastError();
    size = static_cast<std::uint64_t>(about.st_size);
    return kSuccess;
}

ErrorCode NativeFiles::SetFilePointerEx(Handle handle, std::uint64_t position) {
    if (position > static_cast<std::uint64_t>(INT64_MAX)) return kInvalidHandle;
    const auto offset = static_cast<off_t>(position);
    return lseek(openedOf(handle).descriptor, offset, SEEK_SET) == -1 ? lastError() : kSuccess;
}

ErrorCode NativeFiles::ReadFile(Handle handle, char* buffer, std::size_t capacity,
                                std::size_t& count) {
    const ssize_t result =
        unlessInterrupted([&] { return read(openedOf(handle).descriptor, buffer, capacity); });
    if (result == -1) return lastError();
    count = static_cast<std::size_t>(result);
    return kSuccess;
}

ErrorCode NativeFiles::WriteFile(Handle handle, std::string_view bytes) {
    Opened& file = openedOf(handle);
    if (isForAdding(file.access)) return whileNamed(file, [&] { return add(file, bytes); });
    while (!bytes.empty()) {
        const ssize_t result =
            unlessInterrupted([&] { return write(file.descriptor, bytes.data(), bytes.size()); });
        if (result == -1) return lastError();
        bytes.remove_prefix(static_cast<std::size_t>(result));
    }
    return kSuccess;
}

ErrorCode NativeFiles::SetEndOfFile(Handle handle) {
    Opened& file = openedOf(handle);
    if (!isForAdding(file.access)) return kAccessDenied;
    return whileNamed(file, [&] { return resultOf(ftruncate(file.descriptor, 0)); });
}

ErrorCode NativeFiles::FlushFileBuffers(Handle handle) {
    return resultOf(fsync(openedOf(handle).descriptor));
}

ErrorCode NativeFiles::CloseHandle(Handle handle) {
    const std::unique_ptr<Opened> file(&openedOf(handle));
    if (file->forWork && file->keepsItsName()) unlink(file->path.c_str());
    return file->close();
}

}  // namespace quorkit
