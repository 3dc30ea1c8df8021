// quorkit call: calls one member once.
#pragma once

#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

#include <ostream>
#include <span>
#include <string>

namespace quorkit::cli {

/// Calls the member that the arguments behind "call" name, and prints its results. Returns the
/// reason why the system refused something, or "". Raises Failure for an error of the member, and
/// UsageError.
std::string call(std::span<const String> arguments, std::ostream& out, Ports& ports);

}  // namespace quorkit::cli
