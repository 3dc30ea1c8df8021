#include "linux/opened.h"

#include <sys/file.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "linux/calls.h"

namespace quorkit::disk {
namespace {

/// The kernel has no wait of that kind.
ErrorCode lockBriefly(int descriptor, int kind) {
    constexpr auto step = std::chrono::microseconds(50);
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(100);
    while (flock(descriptor, kind | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) return lastError();
        if (std::chrono::steady_clock::now() > end) return kLockViolation;
        std::this_thread::sleep_for(step);
    }
    return kSuccess;
}

}  // namespace

Opened::~Opened() {
    if (descriptor != -1) close(descriptor);
}

ErrorCode Opened::openRegular(int flags) {
    descriptor = unlessInterrupted([&] { return open(path.c_str(), flags | kQuietly, 0666); });
    if (descriptor == -1) return lastErrorAt(path);
    if (fstat(descriptor, &about) == 0 && S_ISREG(about.st_mode)) return kSuccess;
    close(descriptor);
    descriptor = -1;
    return kAccessDenied;
}

bool Opened::keepsItsName() const {
    struct stat now = {};
    return stat(path.c_str(), &now) == 0 && now.st_dev == about.st_dev &&
           now.st_ino == about.st_ino;
}

bool writableByAnyone(const struct stat& file) {
    return (file.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0;
}

ErrorCode lock(int descriptor, int kind, Wait wait) {
    if (wait == Wait::Briefly) return lockBriefly(descriptor, kind);
    return resultOf(unlessInterrupted([&] { return flock(descriptor, kind); }));
}

}  // namespace quorkit::disk
