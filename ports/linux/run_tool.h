// Programs that help this one.
#pragma once

#include <string>
#include <vector>

namespace quorkit::native {

struct ToolResult {
    bool started = false;  ///< false when there is no such program
    int status = -1;       ///< its exit status; -1 when a signal ended it
    std::string output;    ///< what it wrote to its standard output
};

/// Runs a program, found on PATH, until it ends. The first of `words` is its name, the others reach
/// it as they are: no shell is asked. It reads `input`, or nothing, writes its errors where this
/// program does, and inherits no other handle. What it leaves in the background is not waited for.
ToolResult runTool(const std::vector<std::string>& words, int input = -1);

}  // namespace quorkit::native
