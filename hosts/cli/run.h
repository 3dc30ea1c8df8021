// The command line as a function.
#pragma once

#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

#include <istream>
#include <ostream>
#include <vector>

namespace quorkit::cli {

/// Runs the command in the arguments, which do not include the program's name. The exit status is
/// 0; 1 after a failure, which `err` reports, for an automation error with its number; 2 for a
/// command line that could not be understood.
int run(const std::vector<String>& arguments, std::istream& in, std::ostream& out,
        std::ostream& err, Ports& ports = ports::native());

}  // namespace quorkit::cli
