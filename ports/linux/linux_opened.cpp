#include "linux/linux_opened.h"

#include <unistd.h>

#include <utility>

#include "linux/linux_calls.h"
#include "linux/linux_names.h"

namespace quorkit::native {

ErrorCode Opened::openRegular(int flags) {
    const auto openAt = [&](const std::string& place, int more) {
        return unlessInterrupted(
            [&] { return open(place.c_str(), flags | kQuietly | more, 0666); });
    };
    if ((flags & O_ACCMODE) == O_RDONLY) {
        descriptor = openAt(path, 0);
    } else {
        descriptor = openAt(path, O_NOFOLLOW);
        if (descriptor == -1 && errno == ELOOP) {
            std::string target = path;
            if (const ErrorCode code = finalPath(target)) return code;
            descriptor = openAt(target, O_NOFOLLOW);
        }
    }
    if (descriptor == -1) return lastErrorAt(path);
    if (fstat(descriptor, &about) == 0 && S_ISREG(about.st_mode)) return kSuccess;
    close();
    return kAccessDenied;
}

ErrorCode Opened::lock(int kind, Wait wait) {
    locked = true;
    return native::lock(descriptor, kind, wait);
}

void Opened::unlock() {
    if (locked) native::unlock(descriptor);
    locked = false;
}

ErrorCode Opened::close() {
    if (descriptor == -1) return kSuccess;
    unlock();
    return resultOf(::close(std::exchange(descriptor, -1)));
}

bool Opened::keepsItsName() const {
    struct stat now = {};
    return stat(path.c_str(), &now) == 0 && now.st_dev == about.st_dev &&
           now.st_ino == about.st_ino;
}

bool Opened::isAsItWas() const {
    struct stat now = {};
    return stat(path.c_str(), &now) == 0 && now.st_dev == about.st_dev &&
           now.st_ino == about.st_ino && now.st_size == about.st_size &&
           now.st_mtim.tv_sec == about.st_mtim.tv_sec &&
           now.st_mtim.tv_nsec == about.st_mtim.tv_nsec;
}

bool writableByAnyone(const struct stat& file) {
    return (file.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
}

}  // namespace quorkit::native
