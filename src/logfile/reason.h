// Why a log file is not written. Members do not tell, so the person in front is told instead.
#pragma once

#include <quorkit/ports/files.h>
#include <quorkit/values.h>

namespace quorkit::logfile {

/// Has ports::takeReason tell what stands in the way of writing the log file `name`.
void sayWhyNot(const String& name, ErrorCode code);
/// The same of a name without a folder, such as "app.log".
void sayThatFolderIsMissing(const String& name);

}  // namespace quorkit::logfile
