#include "linux/run_tool.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "linux/calls.h"

namespace quorkit::disk {
namespace {

/// How the program starts: with the given standard output, and with the signals of a fresh one.
class Start {
   public:
    explicit Start(int output) {
        posix_spawn_file_actions_init(&files_);
        // First the output, which may itself be number 0.
        posix_spawn_file_actions_adddup2(&files_, output, STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&files_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&files_, STDERR_FILENO + 1);
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_init(&attributes_);
        posix_spawnattr_setsigmask(&attributes_, &none);
        posix_spawnattr_setsigdefault(&attributes_, &all);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~Start() {
        posix_spawnattr_destroy(&attributes_);
        posix_spawn_file_actions_destroy(&files_);
    }
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;

    bool run(const std::vector<std::string>& words, pid_t& process) {
        std::vector<char*> line;
        line.reserve(words.size() + 1);
        for (const std::string& word : words) line.push_back(const_cast<char*>(word.c_str()));
        line.push_back(nullptr);
        return posix_spawnp(&process, line[0], &files_, &attributes_, line.data(), environ) == 0;
    }

   private:
    posix_spawn_file_actions_t files_{};
    posix_spawnattr_t attributes_{};
};

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

ToolResult runTool(const std::vector<std::string>& words) {
    ToolResult result;
    int ends[2] = {};
    if (pipe2(ends, O_CLOEXEC) != 0) return result;
    pid_t process = 0;
    result.started = Start(ends[1]).run(words, process);
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
