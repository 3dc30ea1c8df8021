#include "linux/file_rights.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <string>

#include "linux/linux_calls.h"

namespace quorkit::native {
namespace {

constexpr uid_t kAsItIs = static_cast<uid_t>(-1);

/// Extended attributes include access lists.
void copyAttributes(int from, int to) {
    const ssize_t length = flistxattr(from, nullptr, 0);
    if (length <= 0) return;
    std::string names(static_cast<std::size_t>(length), '\0');
    if (flistxattr(from, names.data(), names.size()) != length) return;
    for (std::size_t at = 0; at < names.size(); at = names.find('\0', at) + 1) {
        const char* name = names.c_str() + at;
        const ssize_t size = fgetxattr(from, name, nullptr, 0);
        if (size < 0) continue;
        std::string value(static_cast<std::size_t>(size), '\0');
        if (fgetxattr(from, name, value.data(), value.size()) == size)
            static_cast<void>(fsetxattr(to, name, value.data(), value.size(), 0) == 0);
    }
}

}  // namespace

ErrorCode copyRights(int from, int to) {
    struct stat old = {};
    struct stat now = {};
    if (fstat(from, &old) != 0) return lastError();
    if (fchown(to, old.st_uid, old.st_gid) != 0)
        static_cast<void>(fchown(to, kAsItIs, old.st_gid) == 0);
    if (fstat(to, &now) != 0) return lastError();
    copyAttributes(from, to);
    mode_t rights = old.st_mode & 07777;
    if (now.st_uid != old.st_uid) rights &= ~static_cast<mode_t>(S_ISUID);
    if (now.st_gid != old.st_gid)
        rights = (rights & ~static_cast<mode_t>(S_ISGID | S_IRWXG)) | (rights & S_IRWXO) << 3;
    // This comes last, because it limits what an access list grants.
    return resultOf(fchmod(to, rights));
}

}  // namespace quorkit::native
