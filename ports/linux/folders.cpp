// Folders on Linux. Links count as what they lead to.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <string>

#include "linux/calls.h"
#include "linux/names.h"
#include "native/files.h"

namespace quorkit {
namespace {

using disk::lastError;

/// Behind the Handle of a search.
struct Search {
    DIR* folder = nullptr;
    FindDetail detail = FindDetail::Names;
};

Search& searchOf(Handle handle) {
    return *reinterpret_cast<Search*>(handle);
}

FileTime fileTimeOf(const timespec& time) {
    constexpr std::int64_t secondsFrom1601To1970 = 11'644'473'600;
    constexpr std::int64_t ticksASecond = 10'000'000;
    const std::int64_t seconds = time.tv_sec + secondsFrom1601To1970;
    return seconds < 0 ? 0 : static_cast<FileTime>(seconds * ticksASecond + time.tv_nsec / 100);
}

/// The attributes of what stands at `path` beneath `folder`, whose status is `about`.
std::uint32_t attributesOf(int folder, const char* path, const struct stat& about) {
    std::uint32_t attributes = S_ISDIR(about.st_mode) ? kDirectory : kArchive;
    const char* slash = std::strrchr(path, '/');
    const std::string_view name = slash == nullptr ? path : slash + 1;
    if (name.starts_with('.') && name != "." && name != "..") attributes |= kHidden;
    const bool writable = (about.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0 &&
                          faccessat(folder, path, W_OK, AT_EACCESS) == 0;
    if (!writable) attributes |= kReadOnly;
    return attributes;
}

/// Fills `data` from an entry. False when it has vanished.
bool describe(int folder, const dirent& entry, FindDetail detail, FindData& data) {
    bool link = entry.d_type == DT_LNK;
    data.attributes = entry.d_type == DT_DIR ? kDirectory : 0u;
    struct stat about = {};
    if (entry.d_type == DT_UNKNOWN) {
        if (fstatat(folder, entry.d_name, &about, AT_SYMLINK_NOFOLLOW) != 0) return false;
        link = S_ISLNK(about.st_mode);
    }
    if (detail != FindDetail::Names || entry.d_type == DT_UNKNOWN || link) {
        // A link that leads nowhere is an entry of its own.
        if (fstatat(folder, entry.d_name, &about, 0) != 0 &&
            fstatat(folder, entry.d_name, &about, AT_SYMLINK_NOFOLLOW) != 0)
            return false;
        data.attributes = detail == FindDetail::Attributes
                              ? attributesOf(folder, entry.d_name, about)
                              : (S_ISDIR(about.st_mode) ? kDirectory : 0u);
        data.lastWrite = fileTimeOf(about.st_mtim);
    }
    if (link) data.attributes |= kReparsePoint;
    data.name = disk::entryNameOf(entry.d_name);
    return true;
}

}  // namespace

ErrorCode NativeFiles::GetFileAttributesA(const String& name, std::uint32_t& attributes) {
    std::string path;
    if (const ErrorCode code = disk::pathOf(name, path)) return code;
    struct stat about = {};
    if (lstat(path.c_str(), &about) != 0) return lastError();
    const bool link = S_ISLNK(about.st_mode);
    if (link && stat(path.c_str(), &about) != 0) return lastError();
    attributes = attributesOf(AT_FDCWD, path.c_str(), about) | (link ? kReparsePoint : 0u);
    return kSuccess;
}

ErrorCode NativeFiles::CreateDirectoryA(const String& name) {
    std::string path;
    if (const ErrorCode code = disk::pathOf(name, path)) return code;
    if (mkdir(path.c_str(), 0777) == 0) return kSuccess;
    return errno == ENOENT ? kPathNotFound : lastError();
}

ErrorCode NativeFiles::FindFirstFileA(const String& folder, FindDetail detail, Handle& search,
                                      FindData& entry) {
    std::string path;
    if (const ErrorCode code = disk::pathOf(folder, path)) return code;
    DIR* opened = opendir(path.c_str());  // close-on-exec
    if (opened == nullptr) return errno == ENOENT ? kPathNotFound : lastError();
    const Handle handle = Handle(reinterpret_cast<std::intptr_t>(new Search{opened, detail}));
    ErrorCode code = FindNextFileA(handle, entry);
    if (code == kNoMoreFiles) code = kFileNotFound;
    if (code == kSuccess)
        search = handle;
    else
        FindClose(handle);
    return code;
}

ErrorCode NativeFiles::FindNextFileA(Handle search, FindData& entry) {
    const Search& under = searchOf(search);
    for (;;) {
        errno = 0;
        const dirent* next = readdir(under.folder);
        if (next == nullptr) return errno == 0 ? kNoMoreFiles : lastError();
        if (describe(dirfd(under.folder), *next, under.detail, entry)) return kSuccess;
    }
}

void NativeFiles::FindClose(Handle search) {
    closedir(searchOf(search).folder);
    delete &searchOf(search);
}

}  // namespace quorkit
