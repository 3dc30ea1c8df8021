// What the runtime says when the system refuses a file.
#pragma once

#include <quorkit/ports/files.h>

namespace quorkit::file {

/// Raises the runtime's error for a code that is not kSuccess: 53, 76, 75, 67, 61, 52 or 70 for
/// what the code's name says (75 for kAccessDenied, 70 for a file in use), 57 for any other.
[[noreturn]] void raiseFileError(ErrorCode code);

}  // namespace quorkit::file
