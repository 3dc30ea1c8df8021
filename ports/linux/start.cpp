#include "linux/start.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "linux/calls.h"

namespace quorkit::disk {
namespace {

constexpr const char* kNothing = "/dev/null";

std::vector<char*> lineOf(const std::vector<std::string>& words) {
    std::vector<char*> line;
    line.reserve(words.size() + 1);
    for (const std::string& word : words) line.push_back(const_cast<char*>(word.c_str()));
    line.push_back(nullptr);
    return line;
}

ErrorCode codeOf(int error) {
    switch (error) {
        case 0:
            return kSuccess;
        case ENOTDIR:
        case ENAMETOOLONG:
            return kFileNotFound;
        case ENOEXEC:
            return kAccessDenied;
        default:
            errno = error;
            return lastError();
    }
}

}  // namespace

Start::Start(const Streams& streams, Session session)
    : input_(fcntl(streams.inputFrom, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)) {
    posix_spawn_file_actions_init(&files_);
    // First the output that is given, which may itself have one of the first numbers.
    if (streams.outputTo != -1)
        posix_spawn_file_actions_adddup2(&files_, streams.outputTo, STDOUT_FILENO);
    else if (streams.output == Streams::Nothing)
        posix_spawn_file_actions_addopen(&files_, STDOUT_FILENO, kNothing, O_WRONLY, 0);
    if (streams.error == Streams::Nothing)
        posix_spawn_file_actions_addopen(&files_, STDERR_FILENO, kNothing, O_WRONLY, 0);
    if (input_)
        posix_spawn_file_actions_adddup2(&files_, input_.get(), STDIN_FILENO);
    else if (streams.input == Streams::Nothing)
        posix_spawn_file_actions_addopen(&files_, STDIN_FILENO, kNothing, O_RDONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&files_, STDERR_FILENO + 1);
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setsigdefault(&attributes_, &all);
    const int flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF |
                      (session == Session::Own ? POSIX_SPAWN_SETSID : 0);
    posix_spawnattr_setflags(&attributes_, static_cast<short>(flags));
}

Start::~Start() {
    posix_spawnattr_destroy(&attributes_);
    posix_spawn_file_actions_destroy(&files_);
}

ErrorCode Start::run(const std::vector<std::string>& words, pid_t& process) const {
    const std::vector<char*> line = lineOf(words);
    return codeOf(posix_spawnp(&process, line[0], &files_, &attributes_, line.data(), environ));
}

ErrorCode Start::runDetached(const std::vector<std::string>& words) const {
    int ends[2] = {};
    if (pipe2(ends, O_CLOEXEC) != 0) return lastError();
    const Descriptor answers(ends[0]);
    Descriptor answer(ends[1]);
    const std::vector<char*> line = lineOf(words);
    // Between, there is a process that does nothing but start the program and end. Other threads
    // of this one may hold any lock, so it does nothing else.
    const pid_t between = _Fork();
    if (between == -1) return lastError();
    if (between == 0) {
        pid_t process = 0;
        const int error =
            posix_spawnp(&process, line[0], &files_, &attributes_, line.data(), environ);
        if (error != 0 && write(answer.get(), &error, sizeof error) == -1) _exit(1);
        _exit(0);
    }
    answer = Descriptor();
    unlessInterrupted([&] { return waitpid(between, nullptr, 0); });
    int error = 0;
    const ssize_t told =
        unlessInterrupted([&] { return read(answers.get(), &error, sizeof error); });
    return told == sizeof error ? codeOf(error) : kSuccess;
}

}  // namespace quorkit::disk
