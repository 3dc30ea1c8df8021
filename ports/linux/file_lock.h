// Locks of flock(2): they lie on the file itself, so they die with the process and leave nothing
// behind. Whoever may read a file can take one, which no kind of lock of the kernel prevents (a
// read lock of fcntl(2) keeps writers away as well); so every wait for one ends.
#pragma once

#include <quorkit/ports/files.h>
#include <sys/file.h>

namespace quorkit::native {

/// Takes a lock, LOCK_SH or LOCK_EX, on an open file. kLockViolation when it could not be had in
/// time; ports::takeReason then says who has it.
ErrorCode lock(int descriptor, int kind, Wait wait = Wait::Patiently);

/// Gives it back. Closing the file alone does not while a child that was forked meanwhile has it
/// open too.
void unlock(int descriptor);

}  // namespace quorkit::native
