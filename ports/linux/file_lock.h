// Locks of flock(2). They belong to the open file, so they end with the process and leave nothing
// behind. Anyone who may read a file can take one, and no kind of kernel lock prevents that (a read
// lock of fcntl(2) keeps writers away as well); therefore every wait has a limit.
#pragma once

#include <quorkit/ports/files.h>
#include <sys/file.h>

namespace quorkit::native {

/// Takes a lock, LOCK_SH or LOCK_EX, on an open file. kLockViolation when the wait was too short;
/// ports::takeReason then names the holder.
ErrorCode lock(int descriptor, int kind, Wait wait = Wait::Patiently);

/// Gives the lock back. Closing the file is not enough if a child that was forked meanwhile has it
/// open too.
void unlock(int descriptor);

}  // namespace quorkit::native
