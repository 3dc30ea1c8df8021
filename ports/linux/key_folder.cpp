#include "linux/key_folder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>

#include "linux/calls.h"
#include "linux/folder_names.h"
#include "linux/opened.h"

namespace quorkit::disk {
namespace {

constexpr off_t kLargestFile = 256 << 20;

/// The code for `errno` where a key is looked for.
ErrorCode keyError() {
    return errno == ENOENT || errno == ENOTDIR ? kFileNotFound
           : errno == ELOOP                    ? kAccessDenied
                                               : lastError();
}

std::string in(const std::string& folder, std::string_view name) {
    return std::string(folder).append("/").append(name);
}

ErrorCode readAll(int file, std::string& text) {
    struct stat about = {};
    if (fstat(file, &about) != 0) return lastError();
    if (!S_ISREG(about.st_mode)) return kAccessDenied;
    if (about.st_size > kLargestFile) return kGeneralFailure;
    text.resize(static_cast<std::size_t>(about.st_size));
    std::size_t count = 0;
    while (count < text.size()) {
        const ssize_t got = unlessInterrupted([&] {
            return pread(file, &text[count], text.size() - count, static_cast<off_t>(count));
        });
        if (got < 0) return lastError();
        if (got == 0) break;
        count += static_cast<std::size_t>(got);
    }
    text.resize(count);
    return kSuccess;
}

ErrorCode writeAll(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t put =
            unlessInterrupted([&] { return write(file, text.data(), text.size()); });
        if (put < 0) return lastError();
        text.remove_prefix(static_cast<std::size_t>(put));
    }
    return kSuccess;
}

/// Opens a file that must not be there yet. Rights do not depend on the process.
Descriptor makeFile(int folder, const char* name, mode_t rights) {
    Descriptor file(
        openat(folder, name, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | kQuietly, rights));
    if (file && fchmod(file.get(), rights) != 0) return Descriptor();
    return file;
}

/// The file of values, locked, and made when it is missing; none with `errno` set.
Descriptor lockValues(int folder, mode_t rights) {
    for (;;) {
        Descriptor file(openat(folder, kValues, O_RDWR | O_NOFOLLOW | kQuietly));
        if (!file && errno == ENOENT) file = makeFile(folder, kValues, rights);
        if (!file && errno == EEXIST) continue;
        if (!file) return file;
        struct flock whole = {};
        whole.l_type = F_WRLCK;
        if (unlessInterrupted([&] { return fcntl(file.get(), F_OFD_SETLKW, &whole); }) != 0)
            return Descriptor();
        struct stat mine = {};
        struct stat named = {};
        if (fstat(file.get(), &mine) != 0) return Descriptor();
        // While this process waited, the holder replaced the file it had locked.
        if (fstatat(folder, kValues, &named, AT_SYMLINK_NOFOLLOW) == 0 &&
            named.st_ino == mine.st_ino && named.st_dev == mine.st_dev)
            return file;
    }
}

/// Puts `text` in the place of the file of values.
ErrorCode replaceValues(int folder, const std::string& path, const struct stat& old,
                        std::string_view text) {
    if (unlinkat(folder, kNewValues, 0) != 0 && errno != ENOENT) return lastError();
    Opened file;
    file.descriptor = makeFile(folder, kNewValues, old.st_mode & 0777).release();
    if (file.descriptor == -1 || fstat(file.descriptor, &file.about) != 0) return keyError();
    ErrorCode code = copyRights(in(path, kValues), old, file);
    if (code == kSuccess) code = writeAll(file.descriptor, text);
    // Nobody waits for the disk, but the content shall not be the last to get there.
    if (code == kSuccess) sync_file_range(file.descriptor, 0, 0, SYNC_FILE_RANGE_WRITE);
    if (code == kSuccess && renameat(folder, kNewValues, folder, kValues) != 0) code = keyError();
    if (code != kSuccess) unlinkat(folder, kNewValues, 0);
    return code;
}

/// A name in `parent` that nobody else uses.
std::string nameForWork(const std::string& parent, const char* prefix) {
    static std::atomic<unsigned> count = 0;
    return in(parent, prefix + std::to_string(getpid()) + '-' + std::to_string(count++));
}

/// Whether a key's folder holds nothing but what is deleted with it.
bool onlyOwn(const std::vector<KeyEntry>& entries) {
    return std::ranges::all_of(entries, [](const KeyEntry& entry) {
        return entry.folder ? entry.forWork() : entry.name == kValues || entry.name == kNewValues;
    });
}

/// Deletes the folder of a key; false, and the values stay, when there is more in it.
bool removeFolder(const std::string& folder) {
    std::vector<KeyEntry> entries;
    if (listKeyFolder(folder, entries) != kSuccess || !onlyOwn(entries)) return false;
    for (const KeyEntry& entry : entries)
        if (entry.folder && !removeFolder(in(folder, entry.name))) return false;
    for (const KeyEntry& entry : entries)
        if (!entry.folder) unlink(in(folder, entry.name).c_str());
    return rmdir(folder.c_str()) == 0;
}

}  // namespace

ErrorCode openKeyFolder(const std::string& folder, bool forWriting) {
    struct stat about = {};
    if (stat(folder.c_str(), &about) != 0) return keyError();
    if (!S_ISDIR(about.st_mode)) return kFileNotFound;
    if (!forWriting) return kSuccess;
    if (!writableByAnyone(about)) return kAccessDenied;
    return faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0 ? kSuccess
                                                                             : keyError();
}

ErrorCode readKeyFile(const std::string& folder, std::string& text) {
    const Descriptor file(open(in(folder, kValues).c_str(), O_RDONLY | O_NOFOLLOW | kQuietly));
    return file ? readAll(file.get(), text) : keyError();
}

ErrorCode changeKeyFile(const std::string& folder, Rights rights,
                        const std::function<ErrorCode(KeyFile&)>& edit) {
    const Descriptor inside(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!inside) return keyError();
    const Descriptor old = lockValues(inside.get(), rights.file);
    if (!old) return keyError();
    struct stat about = {};
    if (fstat(old.get(), &about) != 0) return lastError();
    if (!writableByAnyone(about)) return kAccessDenied;
    std::string text;
    ErrorCode code = readAll(old.get(), text);
    if (code != kSuccess) return code;
    KeyFile file(text);
    code = edit(file);
    if (code != kSuccess || file.text() == text) return code;
    return replaceValues(inside.get(), folder, about, file.text());
}

ErrorCode makeFolders(const std::string& folder, mode_t rights) {
    for (std::size_t end = 0; end != std::string::npos;) {
        end = folder.find('/', end + 1);
        const std::string here = folder.substr(0, end);
        if (mkdir(here.c_str(), rights) == 0)
            chmod(here.c_str(), rights);
        else if (errno != EEXIST && access(here.c_str(), F_OK) != 0)
            return lastError();
    }
    return kSuccess;
}

ErrorCode makeKeyFolder(const std::string& parent, const String& name, Rights rights) {
    const std::string folder = in(parent, folderNameOf(name));
    if (openKeyFolder(folder, false) == kSuccess) return kSuccess;
    const std::string work = nameForWork(parent, "@new-");
    if (mkdir(work.c_str(), rights.folder) != 0 || chmod(work.c_str(), rights.folder) != 0)
        return keyError();
    ErrorCode code = kSuccess;
    {
        const Descriptor values = makeFile(AT_FDCWD, in(work, kValues).c_str(), rights.file);
        code = values ? writeAll(values.get(), newKeyFile(name)) : lastError();
    }
    if (code == kSuccess && rename(work.c_str(), folder.c_str()) == 0) return kSuccess;
    if (code == kSuccess && errno != EEXIST && errno != ENOTEMPTY)
        code = errno == ENOTDIR ? kAccessDenied : keyError();
    removeFolder(work);
    return code;
}

ErrorCode removeKeyFolder(const std::string& parent, const String& name) {
    const std::string folder = in(parent, folderNameOf(name));
    std::vector<KeyEntry> entries;
    if (const ErrorCode code = listKeyFolder(folder, entries)) return code;
    if (!onlyOwn(entries)) return kAccessDenied;
    const std::string work = nameForWork(parent, "@old-");
    if (rename(folder.c_str(), work.c_str()) != 0) return keyError();
    if (removeFolder(work)) return kSuccess;
    // Another process has put something into it meanwhile.
    renameat2(AT_FDCWD, work.c_str(), AT_FDCWD, folder.c_str(), RENAME_NOREPLACE);
    return kAccessDenied;
}

ErrorCode listKeyFolder(const std::string& folder, std::vector<KeyEntry>& entries) {
    const std::unique_ptr<DIR, int (*)(DIR*)> opened(opendir(folder.c_str()), closedir);
    if (!opened) return keyError();
    for (;;) {
        errno = 0;
        const dirent* const next = readdir(opened.get());
        if (next == nullptr) return errno == 0 ? kSuccess : lastError();
        KeyEntry entry{next->d_name, next->d_type == DT_DIR, next->d_type == DT_LNK};
        if (entry.name == "." || entry.name == "..") continue;
        struct stat about = {};
        if (next->d_type == DT_UNKNOWN &&
            fstatat(dirfd(opened.get()), next->d_name, &about, AT_SYMLINK_NOFOLLOW) == 0) {
            entry.folder = S_ISDIR(about.st_mode);
            entry.link = S_ISLNK(about.st_mode);
        }
        entries.push_back(std::move(entry));
    }
}

std::optional<String> keyNameOf(const std::string& parent, const KeyEntry& entry) {
    if (!entry.folder || !isFolderName(entry.name)) return {};
    std::string text;
    if (readKeyFile(in(parent, entry.name), text) == kSuccess) {
        auto spelled = KeyFile(std::move(text)).name();
        if (spelled && folderNameOf(*spelled) == entry.name) return spelled;
    }
    if (isCutOff(entry.name)) return {};
    return nameOfSpelled(entry.name);
}

}  // namespace quorkit::disk
