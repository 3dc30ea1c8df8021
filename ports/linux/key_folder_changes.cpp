#include <fcntl.h>
#include <sys/fsuid.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <utility>

#include "linux/file_lock.h"
#include "linux/file_rights.h"
#include "linux/folder_names.h"
#include "linux/key_folder.h"
#include "linux/linux_calls.h"
#include "linux/linux_opened.h"

namespace quorkit::native {
namespace {

/// While this object lives, the superuser acts as the owner of a folder. So new files are the
/// owner's from the start: other processes never meet a file that they may not use, even if this
/// process dies.
class AsOwnerOf {
   public:
    explicit AsOwnerOf(int folder) {
        struct stat around = {};
        if (geteuid() != 0 || fstat(folder, &around) != 0 || around.st_uid == 0) return;
        group_ = setfsgid(around.st_gid);
        user_ = setfsuid(around.st_uid);
        // These calls report no failure. With a number that nobody has they return the current one.
        constexpr auto ask = static_cast<uid_t>(-1);
        may_ = static_cast<uid_t>(setfsuid(ask)) == around.st_uid &&
               static_cast<gid_t>(setfsgid(ask)) == around.st_gid;
        if (!may_) errno = EPERM;
    }
    ~AsOwnerOf() {
        if (user_ < 0) return;
        setfsuid(static_cast<uid_t>(user_));
        setfsgid(static_cast<gid_t>(group_));
    }
    AsOwnerOf(const AsOwnerOf&) = delete;
    AsOwnerOf& operator=(const AsOwnerOf&) = delete;

    /// False, with errno, when this process may not act as the owner, as in some containers.
    explicit operator bool() const { return may_; }

   private:
    bool may_ = true;
    int user_ = -1;
    int group_ = -1;
};

Descriptor openFolder(const std::string& folder) {
    return Descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

/// Gives `made` these rights, whatever the process's mask removes.
Descriptor withRights(Descriptor made, mode_t rights) {
    return made && fchmod(made.get(), rights) == 0 ? std::move(made) : Descriptor();
}

/// Opens a file that must not exist yet.
Descriptor makeFile(int folder, const char* name, mode_t rights) {
    const AsOwnerOf owner(folder);
    if (!owner) return Descriptor();
    return withRights(
        Descriptor(openat(folder, name, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | kQuietly, rights)),
        rights);
}

/// Makes a folder that must not exist yet.
Descriptor makeFolder(const std::string& parent, const std::string& name, mode_t rights) {
    const Descriptor around = openFolder(parent);
    if (!around) return Descriptor();
    const AsOwnerOf owner(around.get());
    if (!owner || mkdirat(around.get(), name.c_str(), rights) != 0) return Descriptor();
    return withRights(Descriptor(openat(around.get(), name.c_str(),
                                        O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)),
                      rights);
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

/// Replaces the file of values by one that holds `text`; `old` is the existing file, if any.
ErrorCode replaceValues(int inside, const Descriptor& old, std::string_view text, mode_t rights) {
    if (text.size() > kLargestKeyFile) return kDiskFull;
    if (unlinkat(inside, kNewValues, 0) != 0 && errno != ENOENT) return lastError();
    Descriptor file = makeFile(inside, kNewValues, rights);
    if (!file) return keyError();
    ErrorCode code = old ? copyRights(old.get(), file.get()) : kSuccess;
    if (code == kSuccess) code = writeAll(file.get(), text);
    // This does not wait for the disk, but starts writing, so that the content is not written last.
    // And some disks report only now that it did not fit.
    if (code == kSuccess) sync_file_range(file.get(), 0, 0, SYNC_FILE_RANGE_WRITE);
    if (close(file.release()) != 0 && code == kSuccess) code = lastError();
    if (code == kSuccess && renameat(inside, kNewValues, inside, kValues) != 0) code = keyError();
    if (code != kSuccess) unlinkat(inside, kNewValues, 0);
    return code;
}

/// Whether a key's folder holds only files that are deleted with it.
bool onlyOwn(const std::vector<KeyEntry>& entries) {
    return std::ranges::all_of(entries, [](const KeyEntry& entry) {
        return entry.folder ? entry.forWork() : entry.name == kValues || entry.name == kNewValues;
    });
}

/// Deletes the folder of a key. False, and the values stay, when it holds anything else.
bool removeFolder(const std::string& folder) {
    std::vector<KeyEntry> entries;
    if (listKeyFolder(folder, false, entries) != kSuccess || !onlyOwn(entries)) return false;
    for (const KeyEntry& entry : entries)
        if (entry.folder && !removeFolder(beneath(folder, entry.name))) return false;
    for (const KeyEntry& entry : entries)
        if (!entry.folder) unlink(beneath(folder, entry.name).c_str());
    return rmdir(folder.c_str()) == 0;
}

/// Makes a work folder with the file of values in it.
ErrorCode prepareKey(const std::string& parent, const String& name, Rights rights) {
    Descriptor folder = makeFolder(parent, kNewFolder, rights.folder);
    if (!folder && errno == EEXIST) {
        // It was left by a process that died.
        if (!removeFolder(beneath(parent, kNewFolder))) return kAccessDenied;
        folder = makeFolder(parent, kNewFolder, rights.folder);
    }
    if (!folder) return keyError();
    const Descriptor values = makeFile(folder.get(), kValues, rights.file);
    return values ? writeAll(values.get(), newKeyFile(name)) : lastError();
}

}  // namespace

StoreLock::StoreLock(const std::string& root) {
    constexpr mode_t ownersOnly = 0600;
    const Descriptor folder = openFolder(root);
    if (!folder) {
        status_ = keyError();
        return;
    }
    do {
        file_ = Descriptor(openat(folder.get(), kLock, O_RDWR | O_NOFOLLOW | kQuietly));
        if (!file_ && errno == ENOENT) file_ = makeFile(folder.get(), kLock, ownersOnly);
    } while (!file_ && errno == EEXIST);
    status_ = file_ ? lock(file_.get(), LOCK_EX) : keyError();
}

StoreLock::~StoreLock() {
    if (file_) unlock(file_.get());
}

ErrorCode changeKeyFile(const std::string& folder, Rights rights,
                        const std::function<ErrorCode(KeyFile&)>& edit) {
    const Descriptor inside(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!inside) return keyError();
    const Descriptor old(openat(inside.get(), kValues, O_RDONLY | O_NOFOLLOW | kQuietly));
    if (!old && errno != ENOENT) return keyError();
    struct stat about = {};
    std::string text;
    if (old) {
        if (fstat(old.get(), &about) != 0) return lastError();
        if (!writableByAnyone(about)) return kAccessDenied;
        if (const ErrorCode code = readValues(old.get(), text)) return code;
    }
    KeyFile file(text);
    const ErrorCode code = edit(file);
    if (code != kSuccess || file.text() == text) return code;
    return replaceValues(inside.get(), old, file.text(), rights.file);
}

ErrorCode makeKeyFolder(const std::string& parent, const String& name, Rights rights) {
    const std::string folder = beneath(parent, folderNameOf(name));
    if (openKeyFolder(folder, false) == kSuccess)
        return isOfAnotherKey(parent, name) ? kAccessDenied : kSuccess;
    const std::string work = beneath(parent, kNewFolder);
    ErrorCode code = prepareKey(parent, name, rights);
    // This replaces an empty folder that somebody has made by hand.
    if (code == kSuccess && rename(work.c_str(), folder.c_str()) != 0)
        code = errno == ENOTDIR ? kAccessDenied : keyError();
    if (code != kSuccess) removeFolder(work);
    return code;
}

ErrorCode removeKeyFolder(const std::string& parent, const String& name) {
    const std::string folder = beneath(parent, folderNameOf(name));
    std::vector<KeyEntry> entries;
    if (const ErrorCode code = listKeyFolder(folder, false, entries)) return code;
    if (isOfAnotherKey(parent, name)) return kFileNotFound;
    if (!onlyOwn(entries)) return kAccessDenied;
    if (const ErrorCode code = openKeyFolder(folder, true)) return code;
    const std::string work = beneath(parent, kOldFolder);
    removeFolder(work);  // left by a process that died
    if (rename(folder.c_str(), work.c_str()) != 0)
        return errno == ENOTEMPTY || errno == EEXIST ? kAccessDenied : keyError();
    removeFolder(work);
    return kSuccess;
}

ErrorCode makeRoot(const std::string& folder, Rights rights) {
    for (std::size_t end = 0; end != std::string::npos;) {
        end = folder.find('/', end + 1);
        const std::string here = folder.substr(0, end);
        if (access(here.c_str(), F_OK) == 0) continue;
        const std::size_t slash = here.rfind('/');
        const std::string around = here.substr(0, std::max<std::size_t>(slash, 1));
        if (makeFolder(around, here.substr(slash + 1), rights.folder) || errno == EEXIST) continue;
        return errno == ENOENT || errno == ENOTDIR ? kPathNotFound : lastError();
    }
    return kSuccess;
}

}  // namespace quorkit::native
