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

/// A clock that moves every few milliseconds and costs next to nothing to read.
std::int64_t tick() {
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return now.tv_sec * 1'000'000'000 + now.tv_nsec;
}

/// How often this process has been forked off.
unsigned generation() {
    static std::atomic<unsigned> forks = 0;
    static const int watching = pthread_atfork(nullptr, nullptr, [] { ++forks; });
    static_cast<void>(watching);
    return forks;
}

/// A forked child has files of its parent open; what it did with them, lock and place included, it
/// would do with the parent's.
bool inherited(const Opened& file) {
    return file.adding.generation != generation();
}

/// Takes the lock that keeps others from replacing the file. Whoever holds another one for ever
/// stops no log: once the wait was in vain, this process adds without, and looks each time whether
/// the lock is to be had. Where a file system has no locks, nobody replaces its files under one.
bool lockToAdd(Opened& file) {
    static lines::GivenUp<std::pair<dev_t, ino_t>> givenUp;
    const std::pair number(file.about.st_dev, file.about.st_ino);
    file.locked = true;
    bool safe = flock(file.descriptor, LOCK_SH | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    if (!safe && !givenUp.contains(number)) safe = file.lock(LOCK_SH) != kLockViolation;
    givenUp.set(number, !safe);
    return safe;
}

/// Whether the name still leads to the file; and the file's size. A file that was deleted or
/// replaced has lost a link; one that was moved has not, and a look at the name costs more than
/// writing. So does a question for its times, which makes the kernel keep them more exactly.
bool leadsHere(Opened& file, off_t& size) {
    struct statx about = {};
    if (statx(file.descriptor, "", AT_EMPTY_PATH, STATX_NLINK | STATX_SIZE, &about) != 0) {
        struct stat older = {};  // a kernel or a sandbox without statx
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

/// Runs `change` on a file for adding and its size, unless its name leads elsewhere.
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

/// Whether a line ends at `place`; true where that cannot be read.
bool lineEndsAt(const Opened& file, off_t place, std::string_view feed) {
    char before[2] = {};
    const std::size_t count = std::min(feed.size(), static_cast<std::size_t>(place));
    const auto got = pread(file.descriptor, before, count, place - static_cast<off_t>(count));
    return got != static_cast<ssize_t>(count) ||
           lines::endAt(static_cast<std::uint64_t>(place), {before, count}, feed);
}

/// Returns when no write is under way that had begun before: the kernel passes writers and changes
/// of attributes one by one. There is none of that name to be removed.
void waitForWriters(const Opened& file) {
    static_cast<void>(fremovexattr(file.descriptor, "user.quorkit.none") == 0);
}

/// Whether the file ends in a line without an end. One that is being written just now looks the
/// same, but grows; `size` follows.
bool isTorn(const Opened& file, off_t& size, std::string_view feed) {
    constexpr int mostLooks = 100;
    for (int looks = 0; looks < mostLooks && !lineEndsAt(file, size, feed); ++looks) {
        waitForWriters(file);
        const off_t seen = std::exchange(size, lseek(file.descriptor, 0, SEEK_END));
        if (size == seen) return true;
    }
    return false;
}

/// When another process began to write between the look and the write of the last line, and was
/// killed at it, that line stands behind a torn one: ends the torn one in its last character. What
/// stands there is past; only somebody who empties the file still changes it.
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
    Opened inside;  // where this one is open, it is for adding only
    inside.path = file.path;
    if (inside.openRegular(O_WRONLY) == kSuccess && inside.about.st_ino == file.about.st_ino &&
        inside.about.st_dev == file.about.st_dev)
        static_cast<void>(
            pwrite(inside.descriptor, last.feed.data(), last.feed.size(), start - unit) == unit);
}

/// A disk that was full took a part of what was to be added: takes it back, if nobody else has the
/// file open for adding, who might have added something behind it.
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

/// Opens for adding, without making what is there already: the system refuses that in folders
/// that everyone may write.
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
        file.close();  // it was replaced before it was locked
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
        file.locked = false;  // it is the parent that gives it back
        return;
    }
    partFromTornLine(file);
}

}  // namespace quorkit::native
