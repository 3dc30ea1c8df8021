// The entries of log workers: texts that tell who wrote them and can be made again for comparison.
#pragma once

#include <quorkit/values.h>

#include <string>

#include "board.h"

namespace quorkit::soak {

/// "<worker.incarnation.step:letters>"; the letters depend on job and step. No entry has "<", ">"
/// or line ends within.
String entryOf(const Job& job, std::uint32_t step);
/// The same as the bytes that the file must have.
std::string entryBytesOf(const Job& job, std::uint32_t step);

/// A log that is kept open is opened in its first step.
inline bool opensFirst(const Job& job) {
    return job.role == Role::Log && !job.autoOpenClose;
}

}  // namespace quorkit::soak
