// Runs the system's tools.
#pragma once

#include <string>
#include <vector>

namespace quorkit::native {

struct ToolResult {
    bool started = false;  ///< false when there is no such program
    int status = -1;       ///< its exit status; -1 when a signal ended it
    std::string output;    ///< its standard output
};

/// Runs a program, found on PATH, until it ends. The first of `words` is its name; the others are
/// its arguments, which no shell changes. It reads `input`, or nothing, shares this program's
/// standard error and inherits no other handle. Programs that it leaves in the background are not
/// waited for.
ToolResult runTool(const std::vector<std::string>& words, int input = -1);

}  // namespace quorkit::native
