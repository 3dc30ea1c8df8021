// Folders on Linux. A link counts as its target.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "linux/linux_calls.h"
#include "linux/linux_names.h"
#include "linux/name_text.h"
#include "native/native_files.h"

namespace quorkit::native {
namespace {

/// The object behind the Handle of a listing.
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
    // Some file systems have times that a FileTime cannot hold.
    constexpr std::int64_t last = INT64_MAX / ticksASecond - secondsFrom1601To1970 - 1;
    if (time.tv_sec < -secondsFrom1601To1970) return 0;
    const std::int64_t seconds = std::min<std::int64_t>(time.tv_sec, last) + secondsFrom1601To1970;
    return static_cast<FileTime>(seconds * ticksASecond + time.tv_nsec / 100);
}

bool isHidden(std::string_view path) {
    while (path.ends_with('/')) path.remove_suffix(1);
    const std::string_view name = path.substr(path.rfind('/') + 1);
    return name.starts_with('.') && name != "." && name != "..";
}

/// The attributes of the entry at `path` beneath `folder`; `about` is its status.
std::uint32_t attributesOf(int folder, const char* path, const struct stat& about) {
    std::uint32_t attributes = 0;
    if (S_ISDIR(about.st_mode)) attributes |= kDirectory;
    if (S_ISREG(about.st_mode)) attributes |= kArchive;
    if (isHidden(path)) attributes |= kHidden;
    const bool writable = (about.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0 &&
                          faccessat(folder, path, W_OK, AT_EACCESS) == 0;
    // For a link that leads nowhere, read-only has no meaning.
    if (!writable && !S_ISLNK(about.st_mode)) attributes |= kReadOnly;
    return attributes == 0 ? kNormal : attributes;
}

/// The code for `errno` when a folder was expected.
ErrorCode pathError() {
    return errno == ENOENT || errno == ELOOP ? kPathNotFound : lastError();
}

/// Fills `data` from an entry. False when it has disappeared, or when it cannot be examined.
bool describe(int folder, const dirent& entry, FindDetail detail, FindData& data) {
    bool link = entry.d_type == DT_LNK;
    data.attributes = entry.d_type == DT_DIR ? kDirectory : 0u;
    data.lastWrite = 0;
    struct stat about = {};
    if (entry.d_type == DT_UNKNOWN) {
        if (fstatat(folder, entry.d_name, &about, AT_SYMLINK_NOFOLLOW) != 0) return false;
        link = S_ISLNK(about.st_mode);
    }
    if (detail != FindDetail::Names || entry.d_type == DT_UNKNOWN || link) {
        // A link that leads nowhere is described itself.
        if (fstatat(folder, entry.d_name, &about, 0) == 0 ||
            fstatat(folder, entry.d_name, &about, AT_SYMLINK_NOFOLLOW) == 0) {
            data.lastWrite = fileTimeOf(about.st_mtim);
        } else {
            if (errno != EACCES || detail == FindDetail::Times) return false;
            // This user may list the folder, but not examine its entries, and so not write them
            // either.
            about.st_mode = static_cast<mode_t>(DTTOIF(entry.d_type));
        }
        data.attributes = detail == FindDetail::Attributes
                              ? attributesOf(folder, entry.d_name, about)
                              : (S_ISDIR(about.st_mode) ? kDirectory : 0u);
    }
    if (link) data.attributes |= kReparsePoint;
    data.name = textOf(entry.d_name);
    return true;
}

}  // namespace

ErrorCode NativeFolders::GetFileAttributesA(const String& name, std::uint32_t& attributes) {
    std::string path;
    if (const ErrorCode code = pathOf(name, path)) return code;
    struct stat about = {};
    if (lstat(path.c_str(), &about) != 0) return lastErrorAt(path);
    const bool link = S_ISLNK(about.st_mode);
    if (link && stat(path.c_str(), &about) != 0) return lastErrorAt(path);
    attributes = attributesOf(AT_FDCWD, path.c_str(), about) | (link ? kReparsePoint : 0u);
    return kSuccess;
}

ErrorCode NativeFolders::CreateDirectoryA(const String& name) {
    std::string path;
    if (const ErrorCode code = pathOf(name, path)) return code;
    return mkdir(path.c_str(), 0777) == 0 ? kSuccess : pathError();
}

ErrorCode NativeFolders::FirstEntry(const String& folder, FindDetail detail, Handle& search,
                                    FindData& entry) {
    std::string path;
    if (const ErrorCode code = pathOf(folder, path)) return code;
    DIR* opened = opendir(path.c_str());  // close-on-exec
    if (opened == nullptr) return pathError();
    const auto handle = Handle(reinterpret_cast<std::intptr_t>(new Search{opened, detail}));
    ErrorCode code = NextEntry(handle, entry);
    if (code == kNoMoreFiles) code = kFileNotFound;
    if (code == kSuccess)
        search = handle;
    else
        EndListing(handle);
    return code;
}

ErrorCode NativeFolders::NextEntry(Handle search, FindData& entry) {
    const Search& under = searchOf(search);
    for (;;) {
        errno = 0;
        const dirent* next = readdir(under.folder);
        if (next == nullptr) return errno == 0 ? kNoMoreFiles : lastError();
        if (describe(dirfd(under.folder), *next, under.detail, entry)) return kSuccess;
    }
}

void NativeFolders::EndListing(Handle search) {
    closedir(searchOf(search).folder);
    delete &searchOf(search);
}

}  // namespace quorkit::native
