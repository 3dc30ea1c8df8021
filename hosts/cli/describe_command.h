// quorkit describe: prints classes, members and enumerations for a person, a program, a type
// library or a page.
#pragma once

#include <quorkit/values.h>

#include <ostream>
#include <span>

namespace quorkit::cli {

/// Runs the command with the arguments behind "describe". Error 429 when nothing of that name is
/// published, 438 for an unknown member; UsageError.
void describeCommand(std::span<const String> arguments, std::ostream& out);

}  // namespace quorkit::cli
