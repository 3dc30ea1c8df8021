#include "linux/run_tool.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "linux/calls.h"
#include "linux/start.h"

namespace quorkit::disk {
namespace {

std::string readAll(int descriptor) {
    std::string text;
    char buffer[4096];
    for (;;) {
        const ssize_t count =
            unlessInterrupted([&] { return read(descriptor, buffer, sizeof buffer); });
        if (count <= 0) return text;
        text.append(buffer, static_cast<std::size_t>(count));
    }
}

}  // namespace

ToolResult runTool(const std::vector<std::string>& words, int input) {
    ToolResult result;
    int ends[2] = {};
    if (pipe2(ends, O_CLOEXEC) != 0) return result;
    pid_t process = 0;
    Streams streams;
    streams.input = Streams::Nothing;
    streams.inputFrom = input;
    streams.outputTo = ends[1];
    result.started = Start(streams).run(words, process) == kSuccess;
    close(ends[1]);
    if (result.started) {
        result.output = readAll(ends[0]);
        int status = 0;
        const pid_t ended = unlessInterrupted([&] { return waitpid(process, &status, 0); });
        if (ended == process && WIFEXITED(status)) result.status = WEXITSTATUS(status);
        // Where this program takes no notice of its children, nobody learns how they ended.
        if (ended == -1) result.status = result.output.empty() ? 1 : 0;
    }
    close(ends[0]);
    return result;
}

}  // namespace quorkit::disk
