// quorkit registry: keys to files and back, and whether the store is sound.
#pragma once

#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

#include <istream>
#include <ostream>
#include <span>

namespace quorkit::cli {

/// Runs what the arguments behind "registry" ask for. A file is written in one step: after a
/// failure it is what it was. An import changes nothing when the file has a bad line; when it is
/// the registry that refuses a change, those before it stay. Raises Failure, UsageError.
void registry(std::span<const String> arguments, std::istream& in, std::ostream& out, Ports& ports);

}  // namespace quorkit::cli
