// quorkit call: one member, once.
#pragma once

#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

#include <ostream>
#include <span>

namespace quorkit::cli {

/// Calls the member that the arguments behind "call" name and prints what it gives back. Raises
/// what the member raises; UsageError.
void call(std::span<const String> arguments, std::ostream& out, Ports& ports);

}  // namespace quorkit::cli
