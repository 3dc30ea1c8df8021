// Changing a file whole on Linux.
#include <sys/file.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <filesystem>

#include "linux/calls.h"
#include "linux/names.h"
#include "linux/opened.h"
#include "native/files.h"

namespace quorkit {
namespace {

namespace fs = std::filesystem;
using namespace disk;

/// Gives `file` the extended attributes of the file at `path`, access lists among them, as far as
/// the system allows it.
void copyAttributes(const std::string& path, int file) {
    const ssize_t length = listxattr(path.c_str(), nullptr, 0);
    if (length <= 0) return;
    std::string names(static_cast<std::size_t>(length), '\0');
    if (listxattr(path.c_str(), names.data(), names.size()) != length) return;
    for (std::size_t at = 0; at < names.size(); at = names.find('\0', at) + 1) {
        const char* name = names.c_str() + at;
        const ssize_t size = getxattr(path.c_str(), name, nullptr, 0);
        if (size < 0) continue;
        std::string value(static_cast<std::size_t>(size), '\0');
        if (getxattr(path.c_str(), name, value.data(), value.size()) == size)
            static_cast<void>(fsetxattr(file, name, value.data(), value.size(), 0) == 0);
    }
}

/// Opens the file to lock, and makes it when there is none.
ErrorCode openToLock(Opened& file) {
    for (;;) {
        ErrorCode code = file.openRegular(O_RDWR);
        if (code != kFileNotFound) return code;
        code = file.openRegular(O_RDWR | O_CREAT | O_EXCL);
        file.madeByLock = code == kSuccess;
        if (code != kFileExists) return code;
        // Another process was quicker, or it is a link that leads nowhere.
        std::error_code error;
        if (fs::is_symlink(file.path, error)) return kInvalidName;
    }
}

}  // namespace

ErrorCode disk::copyRights(const std::string& path, const struct stat& old, const Opened& file) {
    const struct stat& mine = file.about;
    if (mine.st_uid != old.st_uid || mine.st_gid != old.st_gid) {
        if (mine.st_uid != geteuid()) return kAccessDenied;  // not the file that we have made
        if (fchown(file.descriptor, old.st_uid, old.st_gid) != 0 && mine.st_gid != old.st_gid &&
            fchown(file.descriptor, mine.st_uid, old.st_gid) != 0)
            return lastError();
    }
    if (fchmod(file.descriptor, old.st_mode & 07777) != 0) return lastError();
    copyAttributes(path, file.descriptor);
    return kSuccess;
}

ErrorCode NativeFiles::GetFinalPathNameA(const String& name, String& target) {
    std::string path;
    if (const ErrorCode code = pathOf(name, path)) return code;
    std::error_code error;
    const fs::path existing = fs::canonical(path, error);
    if (!error) {
        target = literalNameOf(existing.native());
        return kSuccess;
    }
    constexpr int kMostLinks = 40;  // as many as the kernel follows
    for (int followed = 0; followed <= kMostLinks; ++followed) {
        const fs::path link = fs::read_symlink(path, error);
        if (error) {
            const fs::path folder = fs::canonical(folderOf(path), error);
            if (error) return kPathNotFound;
            target = literalNameOf(folder / fs::path(path).filename());
            return kSuccess;
        }
        path = fs::path(path).parent_path() / link;
    }
    return kInvalidName;
}

ErrorCode NativeFiles::LockFileA(const String& name, Handle& handle, Wait wait) {
    std::string path;
    if (const ErrorCode code = pathOf(name, path)) return code;
    const std::string folder = folderOf(path);
    struct stat about = {};
    if (stat(folder.c_str(), &about) != 0) return errno == ENOENT ? kPathNotFound : lastError();
    if (!writableByAnyone(about) ||
        faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0)
        return kAccessDenied;
    for (;;) {
        auto file = std::make_unique<Opened>();
        file->path = path;
        ErrorCode code = openToLock(*file);
        if (code == kSuccess && !writableByAnyone(file->about)) code = kAccessDenied;
        if (code == kSuccess) code = lock(file->descriptor, LOCK_EX, wait);
        if (code != kSuccess) return code;
        if (file->keepsItsName()) {
            handle = handOut(std::move(file));
            return kSuccess;
        }
        // While this process waited, the holder replaced or removed the file it had locked.
    }
}

ErrorCode NativeFiles::ReplaceFileA(const String& name, const String& replacement, Wait) {
    std::string to;
    Opened from;
    if (const ErrorCode code = pathOf(name, to)) return code;
    if (const ErrorCode code = pathOf(replacement, from.path)) return code;
    // Whoever may write in the folder could put another file in its place at any time.
    if (const ErrorCode code = from.openRegular(O_RDONLY | O_NOFOLLOW)) return code;
    if (from.about.st_nlink != 1) return kAccessDenied;
    struct stat old = {};
    if (stat(to.c_str(), &old) == 0) {
        if (const ErrorCode code = copyRights(to, old, from)) return code;
    } else if (errno != ENOENT) {
        return lastError();
    }
    if (!from.keepsItsName()) return kAccessDenied;
    return resultOf(rename(from.path.c_str(), to.c_str()));
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
