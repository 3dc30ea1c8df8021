// quorkit register: makes the automation server known to Windows.
#pragma once

#include <quorkit/values.h>

#include <optional>
#include <ostream>
#include <span>

namespace quorkit::cli {

struct RegisterLine {
    bool machine = false;  ///< for everybody on this machine, otherwise for this user
    bool remove = false;
    std::optional<String> dll;  ///< otherwise the one beside this program
};

/// Registers the server of this program's bitness, or removes what is registered for it, and says
/// so. Raises Failure; on Linux always, because it has nothing to register.
void registerServer(const RegisterLine& line, std::ostream& out);

/// Runs the command with the arguments behind "register". Raises Failure, UsageError.
void registerCommand(std::span<const String> arguments, std::ostream& out);

}  // namespace quorkit::cli
