// quorkit call: one member, once.
#pragma once

#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

#include <ostream>
#include <span>
#include <string>

namespace quorkit::cli {

/// Calls the member that the arguments behind "call" name and prints what it gives back. Returns
/// why the system refused something, "" when it did not. Failure with what the member raises;
/// UsageError.
std::string call(std::span<const String> arguments, std::ostream& out, Ports& ports);

}  // namespace quorkit::cli
