// Checks by other programs.
#pragma once

#include <chrono>
#include <cstdio>
#include <string>
#include <thread>

namespace quorkit::test {

/// The output of a shell command.
inline std::string outputOf(const std::string& command) {
    FILE* const pipe = popen((command + " 2>/dev/null").c_str(), "r");
    std::string text;
    char buffer[4096];
    while (const std::size_t count = fread(buffer, 1, sizeof buffer, pipe))
        text.append(buffer, count);
    pclose(pipe);
    return text;
}

/// Repeats `ask` until it returns true, for ten seconds at most.
template <class Ask>
bool comesTrue(Ask ask) {
    for (int i = 0; i < 1000; ++i, std::this_thread::sleep_for(std::chrono::milliseconds(10)))
        if (ask()) return true;
    return false;
}

}  // namespace quorkit::test
