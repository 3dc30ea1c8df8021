// The command line run inside the test program, over ports in memory.
#pragma once

#include <quorkit/ports/memory.h>

#include <sstream>
#include <string>
#include <vector>

#include "cli/run.h"

namespace quorkit::test {

struct CommandOutcome {
    int status = 0;
    std::string output;
    std::string errors;
};

inline CommandOutcome command(const std::vector<String>& words, const std::string& input = {}) {
    MemoryPorts ports;
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream errors;
    const int status = cli::run(words, in, out, errors, ports);
    return {status, out.str(), errors.str()};
}

}  // namespace quorkit::test
