// Who may do what with a file that takes the place of another one.
#pragma once

#include <quorkit/ports/files.h>

namespace quorkit::native {

/// Gives the open file `to`, which this process has made, the owner, group, rights and extended
/// attributes of the open file `from`, as far as the system lets this user. Where the group cannot
/// be kept, its rights become those of all others, so that nobody gets more than before. A failure
/// may leave some given.
ErrorCode copyRights(int from, int to);

}  // namespace quorkit::native
