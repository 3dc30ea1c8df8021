// The rights of a file that replaces another one.
#pragma once

#include <quorkit/ports/files.h>

namespace quorkit::native {

/// Gives the open file `to`, which this process has made, the owner, group, rights and extended
/// attributes of the open file `from`, as far as the system lets this user. If the group cannot be
/// kept, the group's rights become those of all others, so that nobody gains access. A failure may
/// leave some of this done.
ErrorCode copyRights(int from, int to);

}  // namespace quorkit::native
