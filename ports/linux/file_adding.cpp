#include "linux/file_adding.h"

#include <pthread.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <utility>

#include "lines/given_up.h"
#include "lines/torn_line.h"
#include "linux/linux_calls.h"

namespace quorkit::native {
namespace {

/// A clock that moves every few milliseconds and is very cheap to read.
std::int64_t tick() {
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return now.tv_sec * 1'000'000'000 + now.tv_nsec;
}

/// The number of forks that lead to this process.
unsigned generation() {
    static std::atomic<unsigned> forks = 0;
    static const int watching = pthread_atfork(nullptr, nullptr, [] { ++forks; });
    static_cast<void>(watching);
    return forks;
}

/// Whether a forked child uses a file that its parent has opened. Its lock and its position are
/// those of the parent, so the child must not change them.
bool inherited(const Opened& file) {
    return file.adding.generation != generation();
}

/// Takes the lock that keeps others from replacing the file. A process that holds another lock for
/// ever stops no log: once the wait was in vain, this process adds without the lock, and tries it
/// again each time without waiting. On a file system without locks nobody replaces files under one.
bool lockToAdd(Opened& file) {
    static lines::GivenUp<std::pair<dev_t, ino_t>> givenUp;
    const std::pair number(file.about.st_dev, file.about.st_ino);
    file.locked = true;
    bool safe = flock(file.descriptor, LOCK_SH | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    if (!safe && !givenUp.contains(number)) safe = file.lock(LOCK_SH) != kLockViolation;
    givenUp.set(number, !safe);
    return safe;
}

/// Whether the name still leads to the file, and the size of the file. A file that was deleted or
/// replaced has lost a link, which shows at once. A file that was moved has not; finding that out
/// means looking up the name, which costs more than writing. Asking for the file's times is
/// expensive too, because it makes the kernel keep them more exactly.
bool leadsHere(Opened& file, off_t& size) {
    struct statx about = {};
    if (statx(file.descriptor, "", AT_EMPTY_PATH, STATX_NLINK | STATX_SIZE, &about) != 0) {
        struct stat older = {};  // for a kernel or a sandbox without statx
        size = fstat(file.descriptor, &older) == 0 ? older.st_size : 0;
        return file.keepsItsName();
    }
    size = static_cast<off_t>(about.stx_size);
    const std::int64_t now = tick();
    Adding& last = file.adding;
    if (about.stx_nlink == last.links && now == last.lastLook) return true;
    if (!file.keepsItsName()) return false;
    last.links = about.stx_nlink;
    last.lastLook = now;
    return true;
}

/// Runs `change` on a file for adding, with its size, unless the name leads to another file.
template <class Change>
ErrorCode whileNamed(Opened& file, Change change) {
    if (inherited(file)) return kFileReplaced;
    const bool yields = file.access == FileAccess::AppendYielding;
    bool& safe = file.adding.safe;
    if (yields || !safe) safe = lockToAdd(file);
    off_t size = 0;
    ErrorCode code = leadsHere(file, size) ? change(size) : kFileReplaced;
    if (code == kSuccess && !safe && !file.keepsItsName()) code = kFileReplaced;
    if (yields) file.unlock();
    return code;
}

/// Whether a line ends at `place`; true when that cannot be read.
bool lineEndsAt(const Opened& file, off_t place, std::string_view feed) {
    char before[2] = {};
    const std::size_t count = std::min(feed.size(), static_cast<std::size_t>(place));
    const auto got = pread(file.descriptor, before, count, place - static_cast<off_t>(count));
    return got != static_cast<ssize_t>(count) ||
           lines::endAt(static_cast<std::uint64_t>(place), {before, count}, feed);
}

/// Returns when no write that began before this call is under way. The kernel runs writes and
/// changes of attributes one at a time, so this removes an attribute that does not exist.
void waitForWriters(const Opened& file) {
    static_cast<void>(fremovexattr(file.descriptor, "user.quorkit.none") == 0);
}

/// Whether the file ends in a line without an end. A line that is just being written looks the
/// same, but then the file grows; `size` is updated.
bool isTorn(const Opened& file, off_t& size, std::string_view feed) {
    constexpr int mostLooks = 100;
    for (int looks = 0; looks < mostLooks && !lineEndsAt(file, size, feed); ++looks) {
        waitForWriters(file);
        const off_t seen = std::exchange(size, lseek(file.descriptor, 0, SEEK_END));
        if (size == seen) return true;
    }
    return false;
}

/// Another process may have begun a line between the check and the write of this one, and been
/// killed at it. Then this line stands behind a torn one. The last character of the torn line is
/// replaced by a line end; nobody changes that part any more, unless he empties the file.
void partFromTornLine(const Opened& file) {
    const Adding& last = file.adding;
    if (last.end == -1 || inherited(file)) return;
    const off_t start = lseek(file.descriptor, 0, SEEK_CUR) - last.size;
    const auto unit = static_cast<off_t>(last.feed.size());
    if (start + last.size == last.end || start < unit || start % unit != 0) return;
    if (lineEndsAt(file, start, last.feed)) return;
    std::string there(last.beginning.size(), '\0');
    const auto length = static_cast<ssize_t>(there.size());
    if (pread(file.descriptor, there.data(), there.size(), start) != length ||
        there != last.beginning || !lineEndsAt(file, start + last.size, last.feed))
        return;
    Opened inside;  // opened again, because the other descriptor is for adding only
    inside.path = file.path;
    if (inside.openRegular(O_WRONLY) == kSuccess && inside.about.st_ino == file.about.st_ino &&
        inside.about.st_dev == file.about.st_dev)
        static_cast<void>(
            pwrite(inside.descriptor, last.feed.data(), last.feed.size(), start - unit) == unit);
}

/// A full disk has taken a part of the bytes. Removes that part, unless somebody else has the file
/// open for adding and may have added behind it.
void takeBack(Opened& file, off_t count) {
    struct stat about = {};
    if (flock(file.descriptor, LOCK_EX | LOCK_NB) == 0 && fstat(file.descriptor, &about) == 0 &&
        about.st_size == lseek(file.descriptor, 0, SEEK_CUR))
        static_cast<void>(ftruncate(file.descriptor, about.st_size - count) == 0);
    file.adding.safe = lockToAdd(file);
}

ErrorCode addBehind(Opened& file, off_t size, std::string_view bytes, std::string_view lineBreak) {
    constexpr std::size_t mostToKnowItBy = 256;
    Adding& last = file.adding;
    const std::string_view feed = lines::feedOf(lineBreak);
    std::string begun;
    if (size != last.end) {
        partFromTornLine(file);
        if (!feed.empty() && isTorn(file, size, feed))
            bytes = begun =
                lines::parting(static_cast<std::uint64_t>(size), lineBreak).append(bytes);
    }
    last.end = -1;
    const ssize_t count =
        unlessInterrupted([&] { return write(file.descriptor, bytes.data(), bytes.size()); });
    if (count == -1) return lastError();
    if (static_cast<std::size_t>(count) != bytes.size()) {
        takeBack(file, count);
        return kDiskFull;
    }
    if (feed.empty()) return kSuccess;
    last.end = size + count;
    last.size = count;
    last.beginning = bytes.substr(0, mostToKnowItBy);
    last.feed = feed;
    return kSuccess;
}

/// Opens a file for adding; one that exists is opened without O_CREAT, which the system refuses in
/// folders that everyone may write.
ErrorCode openOrMake(Opened& file, int access) {
    const ErrorCode code = file.openRegular(access | O_APPEND);
    return code == kFileNotFound ? file.openRegular(access | O_APPEND | O_CREAT) : code;
}

}  // namespace

ErrorCode openToAdd(Opened& file) {
    for (;;) {
        ErrorCode code = openOrMake(file, O_RDWR);
        if (code == kAccessDenied) code = openOrMake(file, O_WRONLY);
        if (code != kSuccess) return code;
        if (!writableByAnyone(file.about)) return kAccessDenied;
        file.adding.generation = generation();
        if (file.access == FileAccess::Append) file.adding.safe = lockToAdd(file);
        file.adding.links = static_cast<std::uint32_t>(file.about.st_nlink);
        file.adding.lastLook = tick();
        if (file.keepsItsName()) return kSuccess;
        file.close();  // it was replaced before the lock was taken
    }
}

ErrorCode add(Opened& file, std::string_view bytes, std::string_view lineBreak) {
    return whileNamed(file, [&](off_t size) { return addBehind(file, size, bytes, lineBreak); });
}

ErrorCode empty(Opened& file) {
    file.adding.end = -1;
    return whileNamed(file, [&](off_t) { return resultOf(ftruncate(file.descriptor, 0)); });
}

void finishAdding(Opened& file) {
    if (inherited(file)) {
        file.locked = false;  // the parent gives it back
        return;
    }
    partFromTornLine(file);
}

}  // namespace quorkit::native
