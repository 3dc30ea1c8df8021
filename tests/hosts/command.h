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

/// `line` holds the words, separated by single blanks; an empty line has none.
inline CommandOutcome command(const String& line, const std::string& input, Ports& ports) {
    std::vector<String> words;
    for (std::size_t start = 0, end = 0; !line.empty() && end != String::npos; start = end + 1) {
        end = line.find(u' ', start);
        words.push_back(line.substr(start, end - start));
    }
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream errors;
    const int status = cli::run(words, in, out, errors, ports);
    return {status, out.str(), errors.str()};
}

/// The same on new ports in memory.
inline CommandOutcome command(const String& line, const std::string& input = {}) {
    MemoryPorts ports;
    return command(line, input, ports);
}

}  // namespace quorkit::test
