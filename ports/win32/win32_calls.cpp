#include "win32/win32_calls.h"

namespace quorkit::native {

ErrorCode lastError() {
    switch (const DWORD code = ::GetLastError(); code) {
        case ERROR_SUCCESS:
            return kGeneralFailure;
        case ERROR_HANDLE_DISK_FULL:
            return kDiskFull;
        case ERROR_ALREADY_EXISTS:
            return kFileExists;
        case ERROR_NOT_READY:  // a drive without a medium
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
        case ERROR_INVALID_DRIVE:
            return kPathNotFound;
        case ERROR_WRITE_PROTECT:
            return kAccessDenied;
        case ERROR_BAD_PATHNAME:
        case ERROR_FILENAME_EXCED_RANGE:
            return kInvalidName;
        case ERROR_CANT_RESOLVE_FILENAME:  // a link in a circle
            return kFileNotFound;
        default:
            return static_cast<ErrorCode>(code);
    }
}

}  // namespace quorkit::native
