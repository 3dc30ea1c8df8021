#include "file/file_error.h"

#include <quorkit/errors.h>

namespace quorkit::file {

void raiseFileError(ErrorCode code) {
    switch (code) {
        case kFileNotFound:
            raise(ErrorNumber::FileNotFound);
        case kPathNotFound:
            raise(ErrorNumber::PathNotFound);
        case kAccessDenied:
            raise(ErrorNumber::PathFileAccessError);
        case kTooManyOpenFiles:
            raise(ErrorNumber::TooManyFiles);
        case kDiskFull:
            raise(ErrorNumber::DiskFull);
        case kInvalidName:
            raise(ErrorNumber::BadFileName);
        case kSharingViolation:
        case kLockViolation:
            raise(ErrorNumber::PermissionDenied);
        default:
            raise(ErrorNumber::DeviceError);
    }
}

}  // namespace quorkit::file
