#include "linux/key_folder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>

#include "base/letter_case.h"
#include "linux/folder_names.h"
#include "linux/linux_calls.h"
#include "linux/linux_opened.h"

namespace quorkit::native {

ErrorCode keyError() {
    return errno == ENOENT || errno == ENOTDIR ? kFileNotFound
           : errno == ELOOP                    ? kAccessDenied
                                               : lastError();
}

bool KeyEntry::forWork() const {
    return name == kNewFolder || name == kOldFolder;
}

ErrorCode openKeyFolder(const std::string& folder, bool forWriting) {
    struct stat about = {};
    if (stat(folder.c_str(), &about) != 0) return keyError();
    if (!S_ISDIR(about.st_mode)) return kFileNotFound;
    if (!forWriting) return kSuccess;
    if (!writableByAnyone(about)) return kAccessDenied;
    const int code = faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS);
    return code == 0 ? kSuccess : keyError();
}

ErrorCode readValues(int file, std::string& text) {
    struct stat about = {};
    if (fstat(file, &about) != 0) return lastError();
    if (!S_ISREG(about.st_mode)) return kAccessDenied;
    if (static_cast<std::size_t>(about.st_size) > kLargestKeyFile) return kGeneralFailure;
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

ErrorCode readKeyFile(const std::string& folder, std::string& text) {
    const Descriptor file(open(beneath(folder, kValues).c_str(), O_RDONLY | O_NOFOLLOW | kQuietly));
    return file ? readValues(file.get(), text) : keyError();
}

ErrorCode listKeyFolder(const std::string& folder, bool isRoot, std::vector<KeyEntry>& entries) {
    Descriptor inside(
        open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | (isRoot ? 0 : O_NOFOLLOW)));
    struct stat about = {};
    if (!inside) {
        const ErrorCode code = keyError();
        const bool link = lstat(folder.c_str(), &about) == 0 && S_ISLNK(about.st_mode);
        return link ? kAccessDenied : code;
    }
    const std::unique_ptr<DIR, int (*)(DIR*)> opened(fdopendir(inside.get()), closedir);
    if (!opened) return lastError();
    inside.release();
    for (;;) {
        errno = 0;
        const dirent* const next = readdir(opened.get());
        if (next == nullptr) return errno == 0 ? kSuccess : lastError();
        KeyEntry entry{next->d_name, next->d_type == DT_DIR, next->d_type == DT_LNK};
        if (entry.name == "." || entry.name == "..") continue;
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
    if (readKeyFile(beneath(parent, entry.name), text) == kSuccess) {
        auto spelled = KeyFile(std::move(text)).name();
        if (spelled && folderNameOf(*spelled) == entry.name) return spelled;
    }
    if (isCutOff(entry.name)) return {};
    return nameOfSpelled(entry.name);
}

bool isOfAnotherKey(const std::string& parent, const String& name) {
    const std::string folder = folderNameOf(name);
    if (!isCutOff(folder)) return false;
    const auto owner = keyNameOf(parent, {folder, true, false});
    return owner && !base::sameText(*owner, name);
}

}  // namespace quorkit::native
