// The runtime's error when the system refuses a file.
#pragma once

#include <quorkit/ports/files.h>

namespace quorkit::file {

/// Raises the runtime's error for a code other than kSuccess: 53, 76, 75, 67, 61, 52 or 70, as the
/// name of the code suggests (75 for kAccessDenied, 70 for a file in use), and 57 for any other.
[[noreturn]] void raiseFileError(ErrorCode code);

}  // namespace quorkit::file
