#include "linux/linux_calls.h"

#include <sys/stat.h>

#include "linux/linux_names.h"

namespace quorkit::native {

ErrorCode lastError() {
    switch (errno) {
        case ENOENT:
            return kFileNotFound;
        case ENOTDIR:
            return kPathNotFound;
        case EMFILE:
        case ENFILE:
            return kTooManyOpenFiles;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ETXTBSY:
        case ENXIO:  // a socket, or a device that does not exist
        case ENODEV:
            return kAccessDenied;
        case EBADF:
            return kInvalidHandle;
        case EEXIST:
            return kFileExists;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return kDiskFull;
        case ELOOP:
        case ENAMETOOLONG:
        case EINVAL:
            return kInvalidName;
        default:
            return kGeneralFailure;
    }
}

ErrorCode lastErrorAt(const std::string& path) {
    if (errno != ENOENT && errno != ELOOP) return lastError();
    struct stat folder = {};
    return stat(folderOf(path).c_str(), &folder) == 0 ? kFileNotFound : kPathNotFound;
}

}  // namespace quorkit::native
