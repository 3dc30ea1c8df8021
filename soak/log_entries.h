// The entries of log workers. Each text names its writer, and can be made again for comparison.
#pragma once

#include <quorkit/values.h>

#include <string>

#include "board.h"

namespace quorkit::soak {

/// "<worker.incarnation.step:letters>". The letters depend on job and step. An entry has no "<",
/// ">" or line end inside.
String entryOf(const Job& job, std::uint32_t step);
/// The same as bytes of the file.
std::string entryBytesOf(const Job& job, std::uint32_t step);

/// Whether the first step only opens the log, because it is kept open.
inline bool opensFirst(const Job& job) {
    return job.role == Role::Log && !job.autoOpenClose;
}

}  // namespace quorkit::soak
