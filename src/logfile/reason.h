// Tells why a log file is not written, which the members' results do not show.
#pragma once

#include <quorkit/ports/files.h>
#include <quorkit/values.h>

namespace quorkit::logfile {

/// Makes ports::takeReason tell why the log file `name` cannot be written.
void sayWhyNot(const String& name, ErrorCode code);
/// The same for a name without a folder, such as "app.log".
void sayThatFolderIsMissing(const String& name);

}  // namespace quorkit::logfile
