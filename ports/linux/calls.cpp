#include "linux/calls.h"

namespace quorkit::disk {

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

}  // namespace quorkit::disk
