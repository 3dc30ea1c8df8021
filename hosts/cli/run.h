// The command line as a function.
#pragma once

#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

#include <istream>
#include <ostream>
#include <vector>

namespace quorkit::cli {

/// Runs the command that the arguments (without the program's name) ask for. The exit status: 0;
/// 1 after a failure, told on `err`, an automation error with its number; 2 after a command line
/// that could not be understood.
int run(const std::vector<String>& arguments, std::istream& in, std::ostream& out,
        std::ostream& err, Ports& ports = ports::native());

}  // namespace quorkit::cli
