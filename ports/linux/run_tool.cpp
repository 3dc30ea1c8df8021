#include "linux/run_tool.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include "linux/descriptor.h"
#include "linux/linux_calls.h"
#include "linux/start_program.h"

namespace quorkit::native {
namespace {

void readRest(int file, std::string& content) {
    std::vector<char> buffer(1 << 16);
    for (ssize_t count = 1; count > 0;) {
        count = unlessInterrupted([&] { return read(file, buffer.data(), buffer.size()); });
        if (count > 0) content.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

}  // namespace

// The output goes to a file, because a pipe may never end: a process that another thread forks
// meanwhile keeps it open too.
ToolResult runTool(const std::vector<std::string>& words, int input) {
    ToolResult result;
    const Descriptor output(memfd_create("output", MFD_CLOEXEC));
    if (!output) return result;
    pid_t process = 0;
    Streams streams;
    streams.input = Streams::Nothing;
    streams.inputFrom = input;
    streams.outputTo = output.get();
    result.started = Start(streams).run(words, process) == kSuccess;
    if (!result.started) return result;
    int status = 0;
    const pid_t ended = unlessInterrupted([&] { return waitpid(process, &status, 0); });
    if (lseek(output.get(), 0, SEEK_SET) == 0) readRest(output.get(), result.output);
    if (ended == process && WIFEXITED(status)) result.status = WEXITSTATUS(status);
    // If this program ignores its children, nobody learns how they ended.
    if (ended == -1) result.status = result.output.empty() ? 1 : 0;
    return result;
}

}  // namespace quorkit::native
