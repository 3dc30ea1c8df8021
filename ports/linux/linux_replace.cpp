// Replacing a file's content on Linux.
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>

#include "linux/file_rights.h"
#include "linux/linux_calls.h"
#include "linux/linux_names.h"
#include "linux/linux_opened.h"
#include "native/native_files.h"

namespace quorkit::native {
namespace {

/// Whether this process may make files in the folder of `path`.
ErrorCode mayMakeBeside(const std::string& path) {
    const std::string folder = folderOf(path);
    struct stat about = {};
    if (stat(folder.c_str(), &about) != 0) return errno == ENOENT ? kPathNotFound : lastError();
    const bool may = writableByAnyone(about) &&
                     faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
    return may ? kSuccess : kAccessDenied;
}

/// The path under which the kernel shows an open file, even one without a name.
std::string placeOf(const Opened& file) {
    return "/proc/self/fd/" + std::to_string(file.descriptor);
}

/// Gives a file without a name this one; false and EEXIST when the name is taken.
bool giveName(const Opened& file, const std::string& path) {
    return linkat(AT_FDCWD, placeOf(file).c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

/// Makes a file without a name in a folder, so that nothing is left of it when this process dies.
bool makeNameless(Opened& file, const std::string& folder, mode_t rights) {
    // A program with other rights than its caller's may not look there, and so could not name the
    // file.
    if (faccessat(AT_FDCWD, "/proc/self/fd", X_OK, AT_EACCESS) != 0) return false;
    file.descriptor = unlessInterrupted(
        [&] { return open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, rights); });
    return file.descriptor != -1;
}

/// Moves `path` to `name` unless that is taken; then false and EEXIST.
bool moveToFreeName(const std::string& path, const std::string& name) {
    if (renameat2(AT_FDCWD, path.c_str(), AT_FDCWD, name.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    // Not every file system can do that; then a link does it.
    return errno == EINVAL && link(path.c_str(), name.c_str()) == 0 && unlink(path.c_str()) == 0;
}

/// Calls `make` to put a file at its path, or, when that is taken, at one with a number behind.
template <class Make>
ErrorCode atFreePath(Opened& file, Make make) {
    constexpr int mostNumbers = 100;
    const std::string wanted = file.path;
    for (int number = 0; number <= mostNumbers; ++number) {
        if (number > 0) file.path = wanted + '-' + std::to_string(number);
        file.forWork = make();
        if (file.forWork) return kSuccess;
        if (errno != EEXIST) return lastErrorAt(file.path);
        // It was left by a process that died. Another user's file in a sticky folder stays.
        file.forWork = unlink(file.path.c_str()) == 0 && make();
        if (file.forWork) return kSuccess;
    }
    return kFileExists;
}

}  // namespace

ErrorCode NativeFiles::FinalName(const String& name, String& target) {
    std::string path;
    ErrorCode code = pathOf(name, path);
    if (code == kSuccess) code = finalPath(path);
    if (code == kSuccess) target = literalNameOf(path);
    return code;
}

ErrorCode NativeFiles::LockForChange(const String& name, Handle& handle, Wait wait) {
    std::string path;
    if (const ErrorCode code = pathOf(name, path)) return code;
    for (;;) {
        auto held = std::make_unique<Opened>();
        held->path = path;
        ErrorCode code = held->openRegular(O_RDWR);
        if (code == kFileNotFound) {
            // There is nothing to lock. The process that makes the file first wins, see Replace.
            code = mayMakeBeside(path);
            if (code == kSuccess) handle = toHandle(std::move(held));
            return code;
        }
        if (code == kSuccess && !writableByAnyone(held->about)) code = kAccessDenied;
        if (code == kSuccess) code = held->lock(LOCK_EX, wait);
        if (code != kSuccess) return code;
        if (fstat(held->descriptor, &held->about) == 0 && held->keepsItsName()) {
            handle = toHandle(std::move(held));
            return kSuccess;
        }
        // While this process waited, the holder has replaced or removed the file.
    }
}

ErrorCode NativeFiles::CreateReplacement(Handle lock, const String& beside, Handle& file) {
    const Opened& held = openedOf(lock);
    auto made = std::make_unique<Opened>();
    made->access = FileAccess::CreateNew;
    if (const ErrorCode code = pathOf(beside, made->path)) return code;
    if (const ErrorCode code = mayMakeBeside(made->path)) return code;
    // A new file gets the usual rights of this process's files; a replacement later gets those of
    // the old.
    const mode_t rights = held.descriptor == -1 ? 0666 : 0600;
    ErrorCode code = kSuccess;
    if (!makeNameless(*made, folderOf(made->path), rights))
        code = atFreePath(*made, [&] {
            constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
            made->descriptor = open(made->path.c_str(), flags, rights);
            return made->descriptor != -1;
        });
    if (code == kSuccess && fstat(made->descriptor, &made->about) != 0) code = lastError();
    if (code == kSuccess) file = toHandle(std::move(made));
    return code;
}

ErrorCode NativeFiles::Replace(Handle lock, Handle file, Wait) {
    const Opened& held = openedOf(lock);
    Opened& made = openedOf(file);
    // Anyone who may write in the folder could have put another file in its place.
    if (made.forWork && !made.keepsItsName()) return kAccessDenied;
    if (held.descriptor == -1) {
        const bool done =
            made.forWork ? moveToFreeName(made.path, held.path) : giveName(made, held.path);
        if (!done) return errno == EEXIST ? kFileReplaced : lastErrorAt(held.path);
    } else {
        if (!held.isAsItWas()) return kFileReplaced;
        if (const ErrorCode code = copyRights(held.descriptor, made.descriptor)) return code;
        if (!made.forWork)
            if (const ErrorCode code = atFreePath(made, [&] { return giveName(made, made.path); }))
                return code;
        if (rename(made.path.c_str(), held.path.c_str()) != 0)
            return errno == EBUSY ? kAccessDenied : lastErrorAt(held.path);
    }
    made.forWork = false;
    return kSuccess;
}

ErrorCode NativeFiles::WriteInPlace(Handle lock, std::string_view content) {
    Opened& held = openedOf(lock);
    if (held.descriptor == -1) return kFileNotFound;
    if (!held.isAsItWas()) return kFileReplaced;
    const auto size = static_cast<off_t>(content.size());
    ErrorCode code = kSuccess;
    // This reserves the space first, so that a full disk leaves the old content. Not every file
    // system can do it.
    if (size > held.about.st_size &&
        fallocate(held.descriptor, FALLOC_FL_KEEP_SIZE, 0, size) != 0 && lastError() == kDiskFull) {
        static_cast<void>(ftruncate(held.descriptor, held.about.st_size) == 0);
        return kDiskFull;
    }
    for (off_t at = 0; code == kSuccess && at < size;) {
        const auto put = unlessInterrupted([&] {
            return pwrite(held.descriptor, content.data() + at, content.size() - std::size_t(at),
                          at);
        });
        if (put == -1) code = lastError();
        at += put;
    }
    if (code == kSuccess) code = resultOf(ftruncate(held.descriptor, size));
    if (code == kSuccess) code = resultOf(fsync(held.descriptor));
    static_cast<void>(fstat(held.descriptor, &held.about) == 0);
    return code;
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

}  // namespace quorkit::native
