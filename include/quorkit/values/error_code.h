// The results of operations of the ports.
#pragma once

#include <cstdint>

namespace quorkit {

/// Error codes with the numbers of Win32, on every system.
enum ErrorCode : std::uint32_t {
    kSuccess = 0,
    kFileNotFound = 2,
    kPathNotFound = 3,
    kTooManyOpenFiles = 4,
    kAccessDenied = 5,
    kInvalidHandle = 6,
    kNoMoreFiles = 18,
    kGeneralFailure = 31,
    kSharingViolation = 32,
    kLockViolation = 33,
    kFileExists = 80,
    kInvalidParameter = 87,
    kDiskFull = 112,
    kInvalidName = 123,
    kBadPathName = 161,
    kFileTooLarge = 223,
    kFileReplaced = 1006,
};

}  // namespace quorkit
